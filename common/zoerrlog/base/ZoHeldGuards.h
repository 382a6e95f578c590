#ifndef ZOERRLOG_BASE_ZOHELDGUARDS_H
#define ZOERRLOG_BASE_ZOHELDGUARDS_H

#include <cstdint>

namespace zoerrlog::base {

/// The guards that the calling thread has locked for reading and not yet unlocked itself, the
/// latest kCapacity of them, by their serial numbers: an address may come back with another guard.
/// Needed when the process forks: in the child only these holds remain.
class HeldGuards {
public:
    static constexpr unsigned kCapacity = 32;

    static void Add(std::uint64_t guard) noexcept;
    /// False when the calling thread did not list the guard.
    static bool Remove(std::uint64_t guard) noexcept;
    static int Count(std::uint64_t guard) noexcept;
};

}  // namespace zoerrlog::base

#endif
