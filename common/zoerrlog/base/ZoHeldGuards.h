#ifndef ZOERRLOG_BASE_ZOHELDGUARDS_H
#define ZOERRLOG_BASE_ZOHELDGUARDS_H

namespace zoerrlog::base {

/// The guards that the calling thread has locked for reading and not yet unlocked itself, the
/// latest kCapacity of them. Needed when the process forks: in the child only these holds remain.
class HeldGuards {
public:
    static constexpr unsigned kCapacity = 32;

    static void Add(const void* guard) noexcept;
    /// False when the calling thread did not list the guard.
    static bool Remove(const void* guard) noexcept;
    static int Count(const void* guard) noexcept;
};

}  // namespace zoerrlog::base

#endif
