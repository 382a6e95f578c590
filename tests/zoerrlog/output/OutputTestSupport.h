#ifndef TESTS_ZOERRLOG_OUTPUT_OUTPUTTESTSUPPORT_H
#define TESTS_ZOERRLOG_OUTPUT_OUTPUTTESTSUPPORT_H

#include <fcntl.h>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include <support/TemporaryDirectory.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/platform/Clock.h>

namespace zotest {

/// A directory for the files of one log, and questions about what a log left in it.
struct LogFolder : TemporaryDirectory {
    std::string Log() const { return File("trace.log"); }
    std::string ReadLog() const { return Read("trace.log"); }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Path())) {
            names.push_back(entry.path().lexically_relative(Path()));
        }
        return names;
    }

    /// The names of the log's backups in the order in which they were made.
    std::vector<std::string> Backups() const {
        std::vector<std::string> names = Names();
        std::erase(names, "trace.log");
        std::sort(names.begin(), names.end(), [](const auto& left, const auto& right) {
            constexpr std::size_t kDateEnd = std::string_view("trace_YYYYMMDD_HHMMSS").size();
            const int dates = left.compare(0, kDateEnd, right, 0, kDateEnd);
            return std::tuple(dates, left.size(), left) < std::tuple(0, right.size(), right);
        });
        return names;
    }

    /// How often each line stands in the files of the folder, taken together.
    std::map<std::string, int> Lines() const {
        std::map<std::string, int> lines;
        for (const std::string& name : Names()) {
            std::ifstream file(File(name), std::ios::binary);
            for (std::string line; std::getline(file, line);) {
                ++lines[line];
            }
        }
        return lines;
    }
};

/// "_YYYYMMDD_HHMMSS" in local time.
inline std::string DateOf(long seconds) {
    const std::time_t instant = seconds;
    char date[std::size("_YYYYMMDD_HHMMSS")];
    std::strftime(date, sizeof date, "_%Y%m%d_%H%M%S", std::localtime(&instant));
    return date;
}

/// How many descriptors this process has, or of those, how many an executed program inherits.
inline int OpenDescriptors(bool inherited = false) {
    int count = 0;
    for (int descriptor = 0; descriptor < 256; ++descriptor) {
        const int flags = ::fcntl(descriptor, F_GETFD);
        count += flags != -1 && (!inherited || (flags & FD_CLOEXEC) == 0) ? 1 : 0;
    }
    return count;
}

/// Stops the library's clock, for good; Advance moves it on.
struct TestClock {
    static constexpr long kStart = 1700000000;
    inline static std::atomic<long> s_now{0};

    TestClock() {
        s_now = kStart;
        zoerrlog::platform::SetClockSource([] { return zoerrlog::platform::WallTime{s_now, 0}; });
    }
    void Advance(long seconds) { s_now += seconds; }
};

// The record has no operation that takes a text just as it stands, so its member is reached
// through an explicit instantiation, which is exempt from access checks.
template <auto Member>
struct TextMember {
    friend ZoByteString& TextOf(CZoErrLogMessage& message) { return message.*Member; }
};
ZoByteString& TextOf(CZoErrLogMessage& message);
template struct TextMember<&CZoErrLogMessage::m_text>;

/// A message that holds `text` and nothing else.
struct MessageText : CZoErrLogMessage {
    explicit MessageText(std::string_view text) : CZoErrLogMessage(false) {
        TextOf(*this).assign(text);
    }
};

}  // namespace zotest

#endif
