#ifndef ZOERRLOG_MESSAGE_ZOTRACELAYOUT_H
#define ZOERRLOG_MESSAGE_ZOTRACELAYOUT_H

#include <algorithm>
#include <cstddef>
#include <string_view>

#include <zoerrlog/base/ZoByteString.h>

namespace zoerrlog::message {

/// Layouts of a trace line.
enum TraceLayout { kBracketed = 0, kColumns = 1, kDelimited = 2, kXml = 3 };

constexpr std::string_view kBetweenColumns = "  ";

/// The most bytes that a field takes in a line beside its value; in columns, those of the value are
/// counted too. `tagSize` is the length of the separator.
std::size_t RoomBesideValue(int format, std::size_t nameSize, int width, std::size_t tagSize);

// Each writes a field to where there is room, and returns what follows it. Whatever stands between
// two fields comes before all but the first.

inline char* PutBracketed(char* next, std::string_view value) {
    *next++ = '[';
    next = ZoCopyShort(next, value);
    *next++ = ']';
    return next;
}

inline char* PutColumn(char* next, std::string_view value, std::size_t columnSize, bool first) {
    next = ZoCopyShort(next, first ? std::string_view() : kBetweenColumns);
    const std::string_view shown = value.substr(0, columnSize);
    return std::fill_n(ZoCopyShort(next, shown), columnSize - shown.size(), ' ');
}

inline char* PutDelimited(char* next, std::string_view value, std::string_view separator,
                          bool first) {
    return ZoCopyShort(ZoCopyShort(next, first ? std::string_view() : separator), value);
}

inline char* PutElement(char* next, std::string_view value, std::string_view name) {
    next = ZoCopyShort(ZoCopyShort(next, "\t<"), name);
    *next++ = '>';
    next = ZoCopyShort(ZoCopyShort(next, value), "</");
    return ZoCopyShort(ZoCopyShort(next, name), ">\n");
}

}  // namespace zoerrlog::message

#endif
