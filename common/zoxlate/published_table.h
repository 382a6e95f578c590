#ifndef ZOXLATE_PUBLISHED_TABLE_H
#define ZOXLATE_PUBLISHED_TABLE_H

#include <zoxlate/bundle_table.h>
#include <zoxlate/stripe.h>

#include <atomic>
#include <memory>

namespace zoxlate {

// Keeps the table of the current directory while it exists, and the one that was current when it
// was made from being freed. Never waits.
class TablePin {
public:
    TablePin() noexcept;
    ~TablePin() { m_readers.fetch_sub(1, std::memory_order_release); }
    TablePin(const TablePin&) = delete;
    TablePin& operator=(const TablePin&) = delete;

    [[nodiscard]] std::size_t Stripe() const noexcept { return m_stripe; }

    // Null before the first use.
    [[nodiscard]] BundleTable* Table() const noexcept { return m_table; }

    // Makes this the current table unless there is one by now; either way Table() is current.
    void PublishFirst(std::unique_ptr<BundleTable> table) noexcept;

private:
    const std::size_t m_stripe;
    std::atomic<std::size_t>& m_readers;
    BundleTable* m_table;
};

// Replaces the current table; the old one is freed as soon as nobody can be reading it.
void PublishTable(std::unique_ptr<BundleTable> table) noexcept;

// Changes with every PublishTable. Who sees the number finds that table or a later one.
unsigned int TableGeneration() noexcept;

}  // namespace zoxlate

#endif
