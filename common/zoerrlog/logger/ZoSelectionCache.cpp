#include <zoerrlog/logger/ZoSelectionCache.h>

ZoSelectionCache::~ZoSelectionCache() {
    for (std::atomic<Row*>& slot : m_rows) {
        const std::unique_ptr<Row> owned(slot.load(std::memory_order_relaxed));
    }
}

void ZoSelectionCache::Store(unsigned int componentId, bool selected) {
    std::atomic<Row*>& slot = m_rows[RowOf(componentId)];
    Row* row = slot.load(std::memory_order_acquire);
    if (row == nullptr) {
        auto made = std::make_unique<Row>();
        // Another thread may have been faster: its row is then the one to use.
        if (slot.compare_exchange_strong(row, made.get(), std::memory_order_acq_rel)) {
            row = made.release();
        }
    }
    (*row)[ColumnOf(componentId)].store(selected ? kSelected : kNotSelected,
                                        std::memory_order_relaxed);
}

void ZoSelectionCache::Reset() noexcept {
    for (const std::atomic<Row*>& slot : m_rows) {
        if (Row* const row = slot.load(std::memory_order_relaxed)) {
            for (std::atomic<Answer>& answer : *row) {
                answer.store(kUnknown, std::memory_order_relaxed);
            }
        }
    }
}
