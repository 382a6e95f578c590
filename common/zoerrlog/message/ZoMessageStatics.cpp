#include <charconv>
#include <cstring>

#include <zoerrlog/message/ZoDateText.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/platform/Clock.h>
#include <zoerrlog/platform/Process.h>

namespace {

using zoerrlog::message::kLongDateLength;
using zoerrlog::message::WriteDigits;

constexpr int kPidMinimum = 10;
constexpr int kTidMinimum = 15;
constexpr int kDateMinimum = static_cast<int>(kLongDateLength) + 1;

enum TimeForm { kDate = 0, kTime = 1, kTimeWithMilliseconds = 2 };

template <typename Number>
bool WriteNumber(Number number, char* buf, int len, int minimum) {
    if (buf == nullptr || len < minimum) {
        return false;
    }
    const auto [end, error] = std::to_chars(buf, buf + len - 1, number);
    if (error != std::errc()) {
        return false;
    }
    *end = '\0';
    return true;
}

char* WriteDate(const std::tm& time, char* text) {
    text = WriteDigits(time.tm_mon + 1, 2, text);
    *text++ = '/';
    text = WriteDigits(time.tm_mday, 2, text);
    *text++ = '/';
    return WriteDigits(time.tm_year + 1900, 4, text);
}

char* WriteTime(const std::tm& time, char* text) {
    text = WriteDigits(time.tm_hour, 2, text);
    *text++ = ':';
    text = WriteDigits(time.tm_min, 2, text);
    *text++ = ':';
    return WriteDigits(time.tm_sec, 2, text);
}

}  // namespace

bool CZoErrLogMessage::GetPid(char* buf, int len) {
    return WriteNumber(zoerrlog::platform::ProcessId(), buf, len, kPidMinimum);
}

bool CZoErrLogMessage::GetTid(char* buf, int len) {
    return WriteNumber(zoerrlog::platform::ThreadId(), buf, len, kTidMinimum);
}

bool CZoErrLogMessage::GetDateTime(const std::tm* t, char* buf, int len) {
    if (t == nullptr || buf == nullptr || len < kDateMinimum) {
        return false;
    }
    zoerrlog::message::WriteLongDate(*t, buf);
    buf[kLongDateLength] = '\0';
    return true;
}

bool CZoErrLogMessage::GetTime(int form, char* buf, bool localTime, int len) {
    // The longest of the forms is the long date, so the minimum length is enough for each.
    if (buf == nullptr || len < kDateMinimum) {
        return false;
    }
    const zoerrlog::platform::WallTime now = zoerrlog::platform::Now();
    const std::tm& time = zoerrlog::platform::BreakDown(now.seconds, localTime);
    char* end = buf;
    switch (form) {
        case kDate:
            end = WriteDate(time, buf);
            break;
        case kTime:
            end = WriteTime(time, buf);
            break;
        case kTimeWithMilliseconds:
            end = WriteTime(time, buf);
            *end++ = '.';
            end = std::to_chars(end, buf + len - 1, now.Milliseconds()).ptr;
            break;
        default:
            return GetDateTime(&time, buf, len);
    }
    *end = '\0';
    return true;
}

const char* CZoErrLogMessage::PathnameFindFilePart(const char* path) {
    const char* const separator = std::strrchr(path, '\\');
    return separator != nullptr ? separator + 1 : path;
}
