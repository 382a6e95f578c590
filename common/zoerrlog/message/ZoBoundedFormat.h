#ifndef ZOERRLOG_MESSAGE_ZOBOUNDEDFORMAT_H
#define ZOERRLOG_MESSAGE_ZOBOUNDEDFORMAT_H

#include <cstdarg>
#include <cstddef>

#include <zoerrlog/base/ZoExport.h>

namespace zoerrlog::message {

/// Formats printf-style into `dst` of `size` (at least 1) bytes, always with a terminator: a text
/// that does not fit is cut, one that cannot be formatted is empty. A "%n" takes its argument and
/// writes nothing; a pattern in which it has a width or precision of "*" cannot be formatted.
/// Returns the length of the whole text, before any cut, or -1 when it could not be formatted.
/// Leaves `args` as vsnprintf does.
ZOERRLOG_PRINTF(3, 0)
int FormatBounded(char* dst, std::size_t size, const char* format, va_list args);

}  // namespace zoerrlog::message

#endif
