#ifndef ZOERRLOG_BASE_ZOHELDGUARDS_H
#define ZOERRLOG_BASE_ZOHELDGUARDS_H

#include <cstdint>

namespace zoerrlog::base {

/// The guards that a thread has locked for reading and not yet unlocked itself, the latest
/// kCapacity of them, by their serial numbers: an address may come back with another guard. Needed
/// when the process forks: in the child only these holds remain.
class HeldGuards {
public:
    static constexpr unsigned kCapacity = 32;

    /// The calling thread's. Not inline, or its address would be asked for anew at every use.
    static HeldGuards& OfThread() noexcept;

    void Add(std::uint64_t guard) noexcept {
        if (m_size == kCapacity) {
            PushOutFirst();
        }
        m_entries[m_size++] = guard;
    }
    /// False, with nothing changed, unless `guard` was added last.
    bool RemoveLast(std::uint64_t guard) noexcept {
        const bool last = m_size > 0 && m_entries[m_size - 1] == guard;
        m_size -= last ? 1 : 0;
        return last;
    }
    /// False when the thread did not list the guard.
    bool Remove(std::uint64_t guard) noexcept;
    int Count(std::uint64_t guard) const noexcept;

private:
    void PushOutFirst() noexcept;

    std::uint64_t m_entries[kCapacity] = {};
    unsigned m_size = 0;
    unsigned m_pushedOut = 0;
};

}  // namespace zoerrlog::base

#endif
