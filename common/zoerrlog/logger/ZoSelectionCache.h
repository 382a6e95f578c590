#ifndef ZOERRLOG_LOGGER_ZOSELECTIONCACHE_H
#define ZOERRLOG_LOGGER_ZOSELECTIONCACHE_H

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>

/// Which components and sub-components the installed trace configuration selects, as far as that
/// has been asked. Indexed by the upper 16 bits of a component identifier.
///
/// Answers may be read and stored by many threads at once, who all store the same; the cache is
/// reset while nobody stores.
class ZoSelectionCache {
public:
    enum Answer : signed char { kUnknown = 0, kSelected = 1, kNotSelected = -1 };

    Answer Find(unsigned int componentId) const noexcept {
        const Row* const row = m_rows[RowOf(componentId)].load(std::memory_order_acquire);
        return row == nullptr ? kUnknown
                              : (*row)[ColumnOf(componentId)].load(std::memory_order_relaxed);
    }

    void Store(unsigned int componentId, bool selected);
    void Reset() noexcept;

    ~ZoSelectionCache();
    ZoSelectionCache() = default;
    ZoSelectionCache(const ZoSelectionCache&) = delete;
    ZoSelectionCache& operator=(const ZoSelectionCache&) = delete;

private:
    // A row a component, made when the component is first asked for: a logger that traces a few
    // components pays for those, not for all that an identifier can name.
    static constexpr std::size_t kRows = 256;
    static constexpr std::size_t kColumns = 256;
    using Row = std::array<std::atomic<Answer>, kColumns>;

    static std::size_t RowOf(unsigned int componentId) { return componentId >> 24; }
    static std::size_t ColumnOf(unsigned int componentId) { return componentId >> 16 & 0xFF; }

    std::array<std::atomic<Row*>, kRows> m_rows{};
};

#endif
