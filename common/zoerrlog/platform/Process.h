#ifndef ZOERRLOG_PLATFORM_PROCESS_H
#define ZOERRLOG_PLATFORM_PROCESS_H

namespace zoerrlog::platform {

/// The id of this process; asked of the system once, and again after a fork.
int ProcessId() noexcept;

/// The id of the calling thread; asked of the system once a thread, and again after a fork.
unsigned int ThreadId() noexcept;

}  // namespace zoerrlog::platform

#endif
