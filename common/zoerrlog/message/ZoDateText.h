#ifndef ZOERRLOG_MESSAGE_ZODATETEXT_H
#define ZOERRLOG_MESSAGE_ZODATETEXT_H

#include <cstddef>
#include <ctime>

namespace zoerrlog::message {

/// Characters of a long date, such as "Mon Nov 16 2026 14:56:38".
constexpr std::size_t kLongDateLength = 24;

/// Writes the long date of `time`, exactly kLongDateLength characters without a terminator.
/// Weekday and month must be in range; the year is written with its last four digits.
void WriteLongDate(const std::tm& time, char* text) noexcept;

/// Writes `value` in `digits` decimal digits, leading zeros included, without a terminator;
/// returns where they end.
char* WriteDigits(int value, int digits, char* text) noexcept;

}  // namespace zoerrlog::message

#endif
