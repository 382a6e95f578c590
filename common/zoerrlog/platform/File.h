#ifndef ZOERRLOG_PLATFORM_FILE_H
#define ZOERRLOG_PLATFORM_FILE_H

#include <cstddef>
#include <cstdint>

namespace zoerrlog::platform {

/// No open file.
constexpr int kNoDescriptor = -1;

/// One write of `length` bytes, begun anew when it is interrupted before anything was written.
/// The number of bytes written, or -1.
std::int64_t WriteFile(int descriptor, const void* data, std::size_t length) noexcept;

/// Reads up to `length` bytes, begun anew when it is interrupted. The number of bytes read, 0 at
/// the end of the file, or -1.
std::int64_t ReadFile(int descriptor, void* data, std::size_t length) noexcept;

/// The size of an open file in bytes, or -1.
std::int64_t FileSize(int descriptor) noexcept;

/// Closes a descriptor; nothing for a negative one.
void CloseFile(int descriptor) noexcept;

/// Makes `descriptor` stand for the file of `replacement`, in one step for all threads that use
/// it, and closes `replacement`, also on failure. False when that failed; `descriptor` is then
/// unchanged.
bool ReplaceFile(int descriptor, int replacement) noexcept;

}  // namespace zoerrlog::platform

#endif
