#ifndef ZOXLATE_BUNDLE_H
#define ZOXLATE_BUNDLE_H

#include <zoxlate/stripe.h>
#include <zoxlate/text_table.h>
#include <zoxlate/zoxlate.h>

#include <array>
#include <atomic>
#include <memory>

namespace zoxlate {

class Bundle;

// What a caller holds: one of a bundle's faces, the one of its thread's stripe. It counts its
// users, and its bundle while the bundle is in use by its owner.
class alignas(kInterferenceSize) BundleHandle final : public CZoXlate {
public:
    // The caller knows that the bundle exists until then.
    void Take() noexcept { m_users.fetch_add(1, std::memory_order_relaxed); }
    void Drop() noexcept;
    [[nodiscard]] const char* Find(std::string_view key) const noexcept;

private:
    friend class Bundle;
    std::atomic<std::size_t> m_users{1};
    Bundle* m_bundle = nullptr;
};

// Lives until its owner and the users of all its handles are gone, whichever is last.
class Bundle {
public:
    struct GiveUp {
        void operator()(Bundle* bundle) const noexcept;
    };
    using Owner = std::unique_ptr<Bundle, GiveUp>;

    static Owner Create(const TextMap& texts);

    BundleHandle& HandleOf(std::size_t stripe) noexcept { return m_handles[stripe]; }

private:
    friend class BundleHandle;
    explicit Bundle(const TextMap& texts);

    TextTable m_texts;
    std::atomic<std::size_t> m_liveHandles{kStripeCount};
    std::array<BundleHandle, kStripeCount> m_handles;
};

inline const char* BundleHandle::Find(std::string_view key) const noexcept {
    return m_bundle->m_texts.Find(key);
}

}  // namespace zoxlate

#endif
