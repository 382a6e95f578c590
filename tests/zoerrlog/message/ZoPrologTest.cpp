#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdint>
#include <ctime>
#include <string>
#include <thread>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/platform/Clock.h>

namespace {

constexpr std::int64_t kNovember = 1794840998;          // 2026-11-16 14:56:38 UTC
constexpr std::int64_t kLastWinterSecond = 1774745999;  // before clocks go from 2 to 3
constexpr std::int64_t kLastSummerSecond = 1792889999;  // before clocks go from 3 to 2
constexpr std::int64_t kLeapDayEnd = 1709251199;        // 2024-02-29 23:59:59 UTC
constexpr const char* kCentralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";

// With the library's clock and the time zone in the test's hands.
class Prolog : public testing::Test {
protected:
    Prolog() {
        zoerrlog::platform::SetClockSource([] { return s_now; });
    }
    ~Prolog() override { zoerrlog::platform::SetClockSource(nullptr); }

    static void SetTime(const char* zone, std::int64_t seconds, int milliseconds = 0) {
        ::setenv("TZ", zone, 1);
        ::tzset();
        s_now = {seconds, milliseconds * 1000000};
    }

    static std::string Ids() {
        return '[' + std::to_string(getpid()) + "/" + std::to_string(gettid()) + "]";
    }

    static std::string Format(CZoErrLogMessage& record, const char* file = "f", int line = 1) {
        EXPECT_TRUE(record.FormatLogProlog(file, line, 3));
        return record.GetBuffer();
    }

private:
    static inline zoerrlog::platform::WallTime s_now = {};
};

TEST_F(Prolog, NamesProcessThreadDateAndSource) {
    SetTime("UTC0", kNovember);
    const std::string longName(3000, 'n');
    const struct {
        const char* file;
        int line;
        std::string source;
    } cases[] = {
        {"LogMsg.src", 120, "[LogMsg.src:120]"},
        {"LogMsg.src", 0, "[LogMsg.src]"},
        {"LogMsg.src", 2147483647, "[LogMsg.src:2147483647]"},
        {"C:\\src\\dir\\File.src", 120, "[File.src:120]"},
        {"src/dir/File.src", 7, "[src/dir/File.src:7]"},
        {"dir\\", 7, "[:7]"},
        {longName.c_str(), 1, '[' + longName + ":1]"},
    };
    CZoErrLogMessage record(false);
    const auto formatAll = [&] {
        for (const auto& testCase : cases) {
            EXPECT_EQ(Format(record, testCase.file, testCase.line),
                      Ids() + "[Mon Nov 16 2026 14:56:38]" + testCase.source);
        }
    };
    std::thread(formatAll).join();
    formatAll();
}

// One after the other, so that nothing remembered from one line shows in the next.
TEST_F(Prolog, CarriesTheTimeOfItsZoneOnBothSidesOfEveryBoundary) {
    const struct {
        const char* zone;
        std::int64_t seconds;
        const char* local;
        const char* utc;
    } cases[] = {
        {"UTC0", kNovember, "Mon Nov 16 2026 14:56:38", "Mon Nov 16 2026 14:56:38"},
        {"EST5", kNovember, "Mon Nov 16 2026 09:56:38", "Mon Nov 16 2026 14:56:38"},
        {"JST-9", kLeapDayEnd, "Fri Mar 01 2024 08:59:59", "Thu Feb 29 2024 23:59:59"},
        {kCentralEurope, kLastWinterSecond, "Sun Mar 29 2026 01:59:59", "Sun Mar 29 2026 00:59:59"},
        {kCentralEurope, kLastWinterSecond + 1, "Sun Mar 29 2026 03:00:00",
         "Sun Mar 29 2026 01:00:00"},
        {kCentralEurope, kLastSummerSecond, "Sun Oct 25 2026 02:59:59", "Sun Oct 25 2026 00:59:59"},
        {kCentralEurope, kLastSummerSecond + 1, "Sun Oct 25 2026 02:00:00",
         "Sun Oct 25 2026 01:00:00"},
    };
    CZoLogger& logger = *theLogger();
    for (const auto& testCase : cases) {
        SCOPED_TRACE(testCase.local);
        SetTime(testCase.zone, testCase.seconds);
        // A record without a choice of its own follows the logger's at the time it is made.
        logger.UseLocalTime(true);
        CZoErrLogMessage local;
        logger.UseLocalTime(false);
        CZoErrLogMessage utc;
        EXPECT_EQ(Format(local), Ids() + "[" + testCase.local + "][f:1]");
        EXPECT_EQ(Format(utc), Ids() + "[" + testCase.utc + "][f:1]");
    }
}

TEST_F(Prolog, TimeTextHasTheFormAskedForWithPlainMilliseconds) {
    const struct {
        int form;
        int milliseconds;
        const char* local;
        const char* utc;
    } cases[] = {
        {0, 500, "11/16/2026", "11/16/2026"},
        {1, 500, "09:56:38", "14:56:38"},
        {2, 0, "09:56:38.0", "14:56:38.0"},
        {2, 999, "09:56:38.999", "14:56:38.999"},
        {99, 7, "Mon Nov 16 2026 09:56:38", "Mon Nov 16 2026 14:56:38"},
    };
    for (const auto& testCase : cases) {
        SetTime("EST5", kNovember, testCase.milliseconds);
        char text[25];
        EXPECT_TRUE(CZoErrLogMessage::GetTime(testCase.form, text, true, sizeof text));
        EXPECT_STREQ(text, testCase.local);
        EXPECT_TRUE(CZoErrLogMessage::GetTime(testCase.form, text, false, sizeof text));
        EXPECT_STREQ(text, testCase.utc);
    }
}

}  // namespace
