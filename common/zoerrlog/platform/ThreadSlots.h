#ifndef ZOERRLOG_PLATFORM_THREADSLOTS_H
#define ZOERRLOG_PLATFORM_THREADSLOTS_H

namespace zoerrlog::platform {

/// Stands for one pointer that every thread has of its own, null at first. There is no limit on
/// the number of slots. A slot that was freed is never taken for a later one.
using ThreadSlot = unsigned long;
constexpr ThreadSlot kNoThreadSlot = 0;

/// A new slot. May throw std::bad_alloc.
ThreadSlot AllocateThreadSlot();

/// Ends a slot: its values are forgotten on all threads, and once this returns the handler below
/// is not called for it any more.
void FreeThreadSlot(ThreadSlot slot) noexcept;

/// The calling thread's value; null for a freed slot. Leaves errno as it was.
void* ThreadSlotValue(ThreadSlot slot) noexcept;

/// Stores the calling thread's value. False when the thread is ending and can keep none. Leaves
/// errno as it was. The first value of a thread in a slot may throw std::bad_alloc; later ones
/// never do.
bool SetThreadSlotValue(ThreadSlot slot, void* value);

/// Is called on a thread that ends, for each of its values that is not null and whose slot still
/// exists; while it runs, that slot is not freed. One handler serves all slots.
using ThreadEndHandler = void (*)(ThreadSlot slot, void* value) noexcept;
void SetThreadEndHandler(ThreadEndHandler handler) noexcept;

}  // namespace zoerrlog::platform

#endif
