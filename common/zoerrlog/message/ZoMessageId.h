#ifndef ZOERRLOG_MESSAGE_ZOMESSAGEID_H
#define ZOERRLOG_MESSAGE_ZOMESSAGEID_H

#include <zoerrlog/trace/ZoKnownInfo.h>

namespace zoerrlog::message {

constexpr unsigned int kComponentShift = 24;
constexpr unsigned int kSubComponentShift = 16;
constexpr unsigned int kSubComponentMask = 0xFF;
constexpr unsigned int kSeverityShift = 14;
constexpr unsigned int kSeverityMask = 0x3;
constexpr unsigned int kMessageNumberMask = 0x3FFF;

/// The number of the component that is built into the library.
constexpr unsigned int kBuiltInComponent = 1;

enum Severity { kInvalid = 0, kInformation = 1, kWarning = 2, kError = 3 };

constexpr unsigned int ComponentNumber(unsigned int id) {
    return id >> kComponentShift;
}

constexpr unsigned int SubComponentNumber(unsigned int id) {
    return id >> kSubComponentShift & kSubComponentMask;
}

constexpr int SeverityOf(unsigned int id) {
    return static_cast<int>(id >> kSeverityShift & kSeverityMask);
}

/// The word in a formatted error line.
constexpr const char* SeverityWord(int severity) {
    switch (severity) {
        case kInformation:
            return "INFO";
        case kWarning:
            return "WARNING";
        case kError:
            return "ERROR";
        default:
            return "INVALID MESSAGE TYPE";
    }
}

/// The word that hosts are given; not the same as in a line.
constexpr const char* ShortSeverityWord(int severity) {
    switch (severity) {
        case kInformation:
            return "INFO";
        case kWarning:
            return "WARN";
        case kError:
            return "ERROR";
        default:
            return "UNKNOWN";
    }
}

}  // namespace zoerrlog::message

#endif
