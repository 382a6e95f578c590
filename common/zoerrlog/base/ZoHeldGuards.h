#ifndef ZOERRLOG_BASE_ZOHELDGUARDS_H
#define ZOERRLOG_BASE_ZOHELDGUARDS_H

namespace zoerrlog::base {

/// The guards that the calling thread has locked and not yet unlocked itself. Needed when the
/// process forks: in the child only these holds remain. A hold that another thread released stays
/// listed until it is pushed out; the guard's own count then limits what is believed.
class HeldGuards {
public:
    static constexpr unsigned kCapacity = 8;

    static void Add(const void* guard) noexcept;
    static void Remove(const void* guard) noexcept;
    static int Count(const void* guard) noexcept;
};

}  // namespace zoerrlog::base

#endif
