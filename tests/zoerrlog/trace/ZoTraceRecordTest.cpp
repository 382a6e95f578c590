#include <unistd.h>

#include <climits>
#include <clocale>

#include <zoerrlog/platform/Clock.h>

#include "TraceTestSupport.h"

using namespace zoerrlog::platform;
enum { kMessage, kSrcFile, kPid, kTid, kDate, kTime, kPreciseTime, kState = 41, kTenant = 65 };
using TraceRecord = zotest::TraceTest;

TEST_F(TraceRecord, StoresEveryKindOfValueAsText) {
    CZoTraceData& record = Trace("State", "");
    const auto lines = [&record](unsigned int field, auto... values) {
        return (Line(record, field, values) + ...);
    };
    EXPECT_EQ(lines(kState, INT_MIN, UINT_MAX, LONG_MIN, LLONG_MIN, ULONG_MAX, ULLONG_MAX),
              "[-2147483648]\n[4294967295]\n[-9223372036854775808]\n[-9223372036854775808]\n"
              "[18446744073709551615]\n[18446744073709551615]\n");
    EXPECT_EQ(lines(kState, true, false, nullptr), "[true]\n[false]\n[]\n");
    EXPECT_EQ(lines(kState, -1e308), '[' + std::to_string(-1e308) + "]\n");
    static const locale_t commaIfInstalled = newlocale(LC_NUMERIC_MASK, "de_DE.UTF-8", nullptr);
    uselocale(commaIfInstalled);
    EXPECT_EQ(lines(kState, -1234.56789051), "[-1234.567891]\n");
    uselocale(LC_GLOBAL_LOCALE);
    Trace("Pid Tid", "");
    const std::string pid = '[' + std::to_string(getpid()) + "][]\n";
    const std::string tid = "[][" + std::to_string(gettid()) + "]\n";
    EXPECT_EQ(lines(kPid, 7, 7L, 7U) + lines(kTid, 7, 7L), pid + pid + "[7][]\n" + tid + tid);
}

TEST_F(TraceRecord, KeepsTextsOfAnyLengthUntilTheNextLine) {
    CZoTraceData& record = Trace("Message SrcFile Tenant", "Tenant ==7");
    for (const std::size_t length : {1023U, 1024U, 5000U, 3U}) {
        const std::string full(length, 'x');
        const std::string line = '[' + full + "][" + full.substr(0, 1023) + "][";
        std::string lines = line;
        lines.append(full).append("]\n").append(line).append("7]\n");
        EXPECT_TRUE(record.SetFieldValue(kMessage, record.FormatTraceMessage("%s", full.c_str())));
        EXPECT_TRUE(record.SetFieldValue(kSrcFile, full.c_str()));
        EXPECT_FALSE(record.SetFieldValue(kTenant, full.c_str()) || !record.Format());
        EXPECT_EQ(Line(record, kTenant, "7"), lines);
        EXPECT_EQ(Line(record, kState, "untraced"), "[][][]\n");
    }
    int written = 7;
    EXPECT_STREQ(record.FormatTraceMessage("a%nb%d", &written, written), "ab7");
    EXPECT_EQ(written, 7);
    for (const char* const nothing : {static_cast<const char*>(nullptr), ""}) {
        EXPECT_STREQ(record.FormatTraceMessage(nothing, written), "");
    }
}

TEST_F(TraceRecord, FillsTheClockFieldsTogetherThroughTheFinestThatIsTraced) {
    const std::tuple<const char*, const char*, unsigned int, bool, const char*> cases[] = {
        {"Date Time", "Date ==x", kDate, true, "[][]\n"},
        {"Date Time", "Date ==x", kTime, false, "[11/14/2023][22:13:20]\n"},
        {"Date Time", "Time ==22:13:20", kTime, true, "[11/14/2023][22:13:20]\n"},
        {"Date Time", "PreciseTime !@.007", kTime, false, "[11/14/2023][22:13:20]\n"},
        {"PreciseTime Date", "Time ==x", kPreciseTime, false, "[22:13:20.007][11/14/2023]\n"},
        {"Message", "Time ==x", kTime, true, "[]\n"}};
    SetClockSource([] { return WallTime{1700000000, 7999999}; });
    for (const auto& [fields, filter, field, passes, line] : cases) {
        EXPECT_EQ(Line(Trace(fields, filter), field, 1, passes), line) << filter;
    }
}

TEST_F(TraceRecord, LogsInTheLayoutOfTheHeadingThatNamesEveryKnownFieldOnce) {
    const std::pair<int, const char*> cases[] = {
        {0, "[Pid][State]\n[===][=====]\n[][more than 8]\n"},
        {1, "Pid       State   \n========  ========\n          more tha\n"},
        {3, "<TraceMessage>\n\t<Pid></Pid>\n\t<State>more than 8</State>\n</TraceMessage>\n"}};
    for (const auto& [format, expected] : cases) {
        Line(Trace("Pid,Nope Pid:State", "", format), kState, "more than 8");
        EXPECT_EQ(text, expected);
    }
    Trace(theLogger()->GetAvailableDataFields() + std::string(" Pid"), "", 2);
    EXPECT_EQ(text.substr(0, text.find('\n')), theLogger()->GetAvailableDataFields());
}
