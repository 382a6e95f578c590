#ifndef ZOERRLOG_PLATFORM_PROCESS_H
#define ZOERRLOG_PLATFORM_PROCESS_H

namespace zoerrlog::platform {

/// The id of this process; asked of the system once, and again after a fork.
int ProcessId() noexcept;

/// The id of the calling thread; asked of the system once a thread, and again after a fork.
unsigned int ThreadId() noexcept;

/// An address that stands for the calling thread: no other living thread has the same one, and a
/// forking thread keeps it in the child, where its id changes.
const void* ThreadIdentity() noexcept;

}  // namespace zoerrlog::platform

#endif
