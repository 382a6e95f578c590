#include <zoxlate/bundle_table.h>

namespace zoxlate {

namespace {

bool Matches(const BundleEntry& entry, const BundleKey& key) noexcept {
    return entry.hash == key.hash && SameText(entry.name, key.name) &&
           SameText(entry.locale, key.locale);
}

}  // namespace

BundleTable::~BundleTable() {
    for (const std::atomic<BundleEntry*>& slot : m_slots) {
        const std::unique_ptr<BundleEntry> entry(slot.load(std::memory_order_acquire));
    }
}

const BundleEntry* BundleTable::Find(const BundleKey& key) const noexcept {
    for (std::size_t position = key.hash % kSlotCount;; position = (position + 1) % kSlotCount) {
        const BundleEntry* const entry = m_slots[position].load(std::memory_order_acquire);
        if (entry == nullptr || Matches(*entry, key)) {
            return entry;
        }
    }
}

const BundleEntry* BundleTable::Add(std::unique_ptr<BundleEntry>& entry) noexcept {
    if (m_entryCount.fetch_add(1, std::memory_order_relaxed) >= kMaximumEntries) {
        m_entryCount.fetch_sub(1, std::memory_order_relaxed);
        return nullptr;
    }
    const BundleEntry* const added = entry.get();
    const BundleEntry* const standing = Insert(entry);
    if (standing != added) {
        m_entryCount.fetch_sub(1, std::memory_order_relaxed);
    }
    return standing;
}

const BundleEntry* BundleTable::Insert(std::unique_ptr<BundleEntry>& entry) noexcept {
    const BundleKey key(entry->name, entry->locale);
    for (std::size_t position = key.hash % kSlotCount;; position = (position + 1) % kSlotCount) {
        BundleEntry* standing = nullptr;
        if (m_slots[position].compare_exchange_strong(standing, entry.get(),
                                                      std::memory_order_acq_rel)) {
            return entry.release();
        }
        if (Matches(*standing, key)) {
            entry.reset();
            return standing;
        }
    }
}

}  // namespace zoxlate
