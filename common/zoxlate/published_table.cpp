#include <zoxlate/published_table.h>

#include <thread>

namespace zoxlate {

namespace {

struct alignas(kInterferenceSize) ReaderCount {
    std::atomic<std::size_t> value{0};
};

// All of them are constant-initialised and never destroyed: threads may be inside at any moment of
// start and exit.
constinit std::array<ReaderCount, kStripeCount> g_readers{};
constinit std::atomic<BundleTable*> g_current{nullptr};
constinit std::atomic<BundleTable*> g_retired{nullptr};
constinit std::atomic<unsigned int> g_generation{0};

// A reader counts itself before it loads g_current, a writer exchanges g_current before it reads
// the counts, all in the one order of sequentially consistent operations. A reader whose count is
// not seen therefore finds the new table. The counts need not be zero at the same time.
bool SawEveryStripeIdle() noexcept {
    // Readers stay for some nanoseconds unless they are suspended or read files, so a few turns for
    // them are enough as a rule; else the tables wait for the next occasion. There is no waiting
    // for certain: in a forked child a reader that was not copied is seen for ever.
    constexpr int turns = 100;
    for (const ReaderCount& readers : g_readers) {
        int left = turns;
        while (readers.value.load(std::memory_order_seq_cst) != 0) {
            if (--left == 0) {
                return false;
            }
            std::this_thread::yield();
        }
    }
    return true;
}

void PushRetired(BundleTable* table) noexcept {
    table->next = g_retired.load(std::memory_order_relaxed);
    while (!g_retired.compare_exchange_weak(table->next, table, std::memory_order_release,
                                            std::memory_order_relaxed)) {
    }
}

void FreeRetired() noexcept {
    // The whole list is taken before the counts are read: what is pushed later is not judged by
    // them.
    BundleTable* table = g_retired.exchange(nullptr, std::memory_order_acquire);
    if (table == nullptr) {
        return;
    }
    const bool idle = SawEveryStripeIdle();
    while (table != nullptr) {
        BundleTable* const next = table->next;
        if (idle) {
            const std::unique_ptr<BundleTable> unused(table);
        } else {
            PushRetired(table);
        }
        table = next;
    }
}

void ReplaceCurrent(BundleTable* table) noexcept {
    BundleTable* const old = g_current.exchange(table, std::memory_order_seq_cst);
    g_generation.fetch_add(1, std::memory_order_release);
    if (old != nullptr) {
        PushRetired(old);
    }
    FreeRetired();
}

// Unloading the library gives everything back. A thread that still asks while the process exits
// merely starts a new table.
struct FreeOnUnload {
    constexpr FreeOnUnload() = default;
    ~FreeOnUnload() { ReplaceCurrent(nullptr); }
};
constinit const FreeOnUnload g_freeOnUnload;

}  // namespace

TablePin::TablePin() noexcept
    : m_stripe(CurrentStripe()), m_readers(g_readers[m_stripe].value), m_table(nullptr) {
    m_readers.fetch_add(1, std::memory_order_seq_cst);
    m_table = g_current.load(std::memory_order_seq_cst);
}

void TablePin::PublishFirst(std::unique_ptr<BundleTable> table) noexcept {
    if (g_current.compare_exchange_strong(m_table, table.get(), std::memory_order_seq_cst)) {
        m_table = table.release();
    }
}

void PublishTable(std::unique_ptr<BundleTable> table) noexcept {
    ReplaceCurrent(table.release());
}

unsigned int TableGeneration() noexcept {
    return g_generation.load(std::memory_order_acquire);
}

}  // namespace zoxlate
