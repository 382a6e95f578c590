#ifndef ZOXLATE_BUNDLE_TABLE_H
#define ZOXLATE_BUNDLE_TABLE_H

#include <zoxlate/bundle.h>
#include <zoxlate/text_hash.h>

#include <array>
#include <atomic>
#include <memory>
#include <string>
#include <string_view>

namespace zoxlate {

struct BundleKey {
    BundleKey(std::string_view bundleName, std::string_view localeName) noexcept
        : name(bundleName), locale(localeName), hash(HashText(locale, HashText(name, 0))) {}

    std::string_view name;
    std::string_view locale;
    std::uint64_t hash;
};

struct BundleEntry {
    BundleEntry(const BundleKey& key, Bundle::Owner found)
        : hash(key.hash), name(key.name), locale(key.locale), bundle(std::move(found)) {}

    std::uint64_t hash;
    std::string name;
    std::string locale;
    Bundle::Owner bundle;  // null: known to have no file
};

// What is known of the bundles of one directory. Entries are only added, by any thread and without
// a lock, and go with the table.
class BundleTable {
public:
    static constexpr std::size_t kMaximumEntries = 4096;

    explicit BundleTable(std::string directory) : m_directory(std::move(directory)) {}
    ~BundleTable();
    BundleTable(const BundleTable&) = delete;
    BundleTable& operator=(const BundleTable&) = delete;

    [[nodiscard]] const std::string& Directory() const noexcept { return m_directory; }

    // Null when nothing is known.
    [[nodiscard]] const BundleEntry* Find(const BundleKey& key) const noexcept;

    // Takes the entry, or drops it for an equal one that another thread added first; gives the one
    // that stands in the table. A full table gives null and leaves the entry alone.
    const BundleEntry* Add(std::unique_ptr<BundleEntry>& entry) noexcept;

    // The next in the list of retired tables.
    BundleTable* next = nullptr;

private:
    // Twice the entries: there is always a free slot to end a search.
    static constexpr std::size_t kSlotCount = 2 * kMaximumEntries;

    const BundleEntry* Insert(std::unique_ptr<BundleEntry>& entry) noexcept;

    std::string m_directory;
    std::atomic<std::size_t> m_entryCount{0};
    std::array<std::atomic<BundleEntry*>, kSlotCount> m_slots{};
};

}  // namespace zoxlate

#endif
