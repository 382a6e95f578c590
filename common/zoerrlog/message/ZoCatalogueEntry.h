#ifndef ZOERRLOG_MESSAGE_ZOCATALOGUEENTRY_H
#define ZOERRLOG_MESSAGE_ZOCATALOGUEENTRY_H

#include <atomic>
#include <cstddef>
#include <memory>
#include <string_view>

#include <zoerrlog/base/ZoByteString.h>
#include <zoxlate/zoxlate.h>

namespace zoerrlog::message {

/// What a message is called and where its text is looked for, by the default logger. Never null but
/// for the bundle name, without which the key has a fixed pattern.
struct MessageName {
    const char* key;
    const char* bundleName;
    const char* fixedPattern;
};
MessageName FindMessageName(unsigned int id);

struct ReleaseBundle {
    void operator()(CZoXlate* bundle) const { bundle->Release(); }
};
/// Keeps the patterns that came from it.
using BundleHold = std::unique_ptr<CZoXlate, ReleaseBundle>;

/// The pattern of the message in `locale`, or what stands for it; valid while `bundle` is held.
const char* FindPattern(const MessageName& name, const char* locale, BundleHold& bundle);

/// A remembered look-up, and what begins the message's text: "[severity][key] ".
struct alignas(64) CatalogueSlot {
    static constexpr std::size_t kLongestHead = 64;

    std::atomic<bool> busy{false};
    unsigned char headLength = 0;
    unsigned char keyStart = 0;  // where "[key] " begins in the head
    unsigned int generation = 0;
    int severity = 0;
    const char* key = nullptr;
    const char* bundleName = nullptr;
    const char* locale = nullptr;
    std::string_view pattern;
    BundleHold bundle;  // null: nothing is remembered
    char head[kLongestHead] = {};
};

/// What a line shows of a message, but for its arguments, remembered between lines: one that was
/// logged a moment ago costs a comparison, for as long as the catalogue is the same
/// (CZoXlate::GetGeneration).
///
/// The texts are valid while the object lives. A thread that finds its slot busy does without.
class RememberedMessage {
public:
    /// `locale` is one of the texts of ZoGetAdminLocale, or static: it is told by its address.
    RememberedMessage(unsigned int id, int severity, const char* locale);

    /// Appends "[severity][key] ".
    void AppendHead(ZoByteString& text) const;
    /// Appends "[key] ".
    void AppendKey(ZoByteString& text) const;
    std::string_view Pattern() const noexcept { return m_pattern; }

private:
    class SlotHold {
    public:
        explicit SlotHold(CatalogueSlot& slot) noexcept
            : m_slot(slot.busy.exchange(true, std::memory_order_acquire) ? nullptr : &slot) {}
        ~SlotHold() {
            if (m_slot != nullptr) {
                m_slot->busy.store(false, std::memory_order_release);
            }
        }
        SlotHold(const SlotHold&) = delete;
        SlotHold& operator=(const SlotHold&) = delete;

        CatalogueSlot* Get() const noexcept { return m_slot; }

    private:
        CatalogueSlot* const m_slot;  // null: another thread has it
    };

    const SlotHold m_hold;
    BundleHold m_bundle;  // without the slot
    const char* m_key;
    const int m_severity;
    std::string_view m_head;  // empty: to be put together from the two above
    std::size_t m_keyStart;
    std::string_view m_pattern;
};

}  // namespace zoerrlog::message

#endif
