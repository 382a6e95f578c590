#ifndef ZOERRLOG_PLATFORM_CONSOLE_H
#define ZOERRLOG_PLATFORM_CONSOLE_H

#include <cstddef>

namespace zoerrlog::platform {

/// The handle of the process console (its standard output), or null when there is none.
void* OpenConsole() noexcept;

/// Writes `length` bytes to the console; how many were written, or -1 when the handle is not a
/// terminal or the write fails at once.
long WriteConsole(void* console, const char* text, std::size_t length) noexcept;

/// Gives the console back. Standard output stays open: it is the host's.
void FreeConsole(void* console) noexcept;

}  // namespace zoerrlog::platform

#endif
