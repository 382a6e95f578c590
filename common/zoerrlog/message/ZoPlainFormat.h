#ifndef ZOERRLOG_MESSAGE_ZOPLAINFORMAT_H
#define ZOERRLOG_MESSAGE_ZOPLAINFORMAT_H

#include <cstdarg>
#include <cstddef>

namespace zoerrlog::message {

/// What vsnprintf does with a pattern of the conversions that nearly all log texts are made of:
/// "%s", "%c", "%d", "%i", "%u", "%x" and "%%", numbers also with "l", "ll" or "z", none with a
/// flag, width or precision. The result has nothing that depends on the locale.
///
/// Gives the length of the whole text; -1 for any other pattern, a null text or a text of more than
/// INT_MAX bytes: `dst` is then undefined, and vsnprintf has to be asked. `size` is not 0.
int FormatPlain(char* dst, std::size_t size, const char* format, va_list args) noexcept;

}  // namespace zoerrlog::message

#endif
