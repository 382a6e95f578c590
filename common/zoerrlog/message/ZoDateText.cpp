#include <zoerrlog/message/ZoDateText.h>

#include <cstring>

namespace zoerrlog::message {
namespace {

// The names stay English whatever the locale of the process is.
constexpr char kWeekdays[][4] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr char kMonths[][4] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                               "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr int kFirstYear = 1900;

char* WriteName(const char* name, char* text) noexcept {
    std::memcpy(text, name, 3);
    text[3] = ' ';
    return text + 4;
}

}  // namespace

char* WriteDigits(int value, int digits, char* text) noexcept {
    for (int i = digits; i-- > 0;) {
        text[i] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
    return text + digits;
}

void WriteLongDate(const std::tm& time, char* text) noexcept {
    text = WriteName(kWeekdays[time.tm_wday], text);
    text = WriteName(kMonths[time.tm_mon], text);
    text = WriteDigits(time.tm_mday, 2, text);
    *text++ = ' ';
    text = WriteDigits(time.tm_year + kFirstYear, 4, text);
    *text++ = ' ';
    text = WriteDigits(time.tm_hour, 2, text);
    *text++ = ':';
    text = WriteDigits(time.tm_min, 2, text);
    *text++ = ':';
    WriteDigits(time.tm_sec, 2, text);
}

}  // namespace zoerrlog::message
