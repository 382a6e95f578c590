#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <string>
#include <tuple>
#include <vector>

#include <zoerrlog/base/ZoTimeValue.h>
#include <zoerrlog/platform/Clock.h>

namespace {

using Parts = std::pair<long, long>;

Parts PartsOf(const CTimeValue& value) {
    return {value.GetSec(), value.GetUsec()};
}

FILETIME Ticks(unsigned long long ticks) {
    return {static_cast<std::uint32_t>(ticks), static_cast<std::uint32_t>(ticks >> 32)};
}

constexpr unsigned long long kEpoch = 116444736000000000;

TEST(TimeValue, NormalisesSecondsAndMicroseconds) {
    const std::tuple<long, long, Parts> cases[] = {
        {1, 2500000, {3, 500000}},
        {1, -1, {0, 999999}},
        {-1, 1, {0, -999999}},
        {0, -5, {0, -5}},
        {0, -1000000, {-1, 0}},
        {-2, -1000001, {-3, -1}},
        {5, INT_MIN, {-2142, -483648}},
        {INT_MAX, 1000000, {INT_MIN, 0}},
        {(1L << 32) + 7, (1L << 32) + 8, {7, 8}},
    };
    for (const auto& [sec, usec, expected] : cases) {
        EXPECT_EQ(PartsOf(CTimeValue(sec, usec)), expected) << sec << ' ' << usec;
    }
    CTimeValue sum(1, 700000);
    sum += CTimeValue(1, 700000);
    EXPECT_EQ(PartsOf(sum), Parts(3, 400000));
    sum -= CTimeValue(4, 0);
    EXPECT_EQ(PartsOf(sum), Parts(0, -600000));
    EXPECT_EQ(PartsOf(timeval32{2, -1}), Parts(1, 999999));
}

TEST(TimeValue, TakesFractionsOfSecondsByCutting) {
    const std::pair<double, Parts> cases[] = {
        {-1.25, {-1, -250000}},     {0.0000019, {0, 1}},          {2.5, {2, 500000}},
        {1e300, {INT_MAX, 999999}}, {-1e300, {INT_MIN, -999999}}, {std::nan(""), {0, 0}}};
    for (const auto& [seconds, expected] : cases) {
        CTimeValue value(9, 9);
        value.Set(seconds);
        EXPECT_EQ(PartsOf(value), expected) << seconds;
    }
}

TEST(TimeValue, ConvertsToMillisecondsThatWrap) {
    const std::tuple<long, Parts, long> cases[] = {
        {-1500, {-1, -500000}, -1500}, {1, {0, 1000}, 1}, {(1L << 32) + 2001, {2, 1000}, 2001}};
    for (const auto& [milliseconds, expected, back] : cases) {
        CTimeValue value;
        value.SetMSsec(milliseconds);
        EXPECT_EQ(PartsOf(value), expected);
        EXPECT_EQ(value.GetMSec(), back);
    }
    EXPECT_EQ(CTimeValue(2147484, 0).GetMSec(), -2147483296);
}

TEST(TimeValue, ConvertsFileTimes) {
    const std::pair<unsigned long long, Parts> cases[] = {
        {kEpoch, {0, 0}},
        {kEpoch + 10000019, {1, 1}},
        {kEpoch + 21474836479999999, {INT_MAX, 999999}}};
    for (const auto& [ticks, expected] : cases) {
        CTimeValue value(Ticks(ticks));
        EXPECT_EQ(PartsOf(value), expected);
        const FILETIME back = value;
        EXPECT_EQ(PartsOf(back), expected);
    }
    const std::pair<const char*, long long> texts[] = {{"116444736000000000", 0},
                                                       {" \t+116444736019999999x", 1},
                                                       {"116444735980000000", -2},
                                                       {"0", INT_MIN},
                                                       {"abc", INT_MIN},
                                                       {"-99999999999999999999999", INT_MIN},
                                                       {"99999999999999999999999", INT_MAX},
                                                       {nullptr, INT_MIN}};
    for (const auto& [text, expected] : texts) {
        EXPECT_EQ(CTimeValue::ConvertToEpochTime(text), expected) << (text != nullptr ? text : "");
    }
}

TEST(TimeValue, ShowsItsParts) {
    const std::tuple<Parts, std::vector<long>, std::string> cases[] = {
        {{3725, 0}, {1, 62, 2, 5}, "01:02:05.000000"},
        {{90061, 500000}, {25, 1501, 1, 1}, "25:01:01.500000"},
        {{-3725, -5}, {-1, -62, -2, -5}, "-1:-2:-5.-00005"},
        {{59, 999999}, {0, 0, 0, 59}, "00:00:59.999999"},
        {{INT_MIN, -999999}, {-596523, -35791394, -14, -8}, "-596523:-14:-8.-99999"}};
    for (const auto& [parts, expected, text] : cases) {
        CTimeValue value(parts.first, parts.second);
        const std::vector<long> found = {value.GetHours(), value.GetMinutes(),
                                         value.GetMinutesLeft(), value.GetSecondsLeft()};
        EXPECT_EQ(found, expected);
        char buffer[23];
        std::memset(buffer, '#', sizeof(buffer));
        value.GetFormattedTimeValue(buffer);
        EXPECT_EQ(buffer, text);
        EXPECT_EQ(buffer[22], '#');
    }
}

TEST(TimeValue, ComparesSecondsBeforeMicroseconds) {
    const CTimeValue ordered[] = {{-1, -5}, {-1, 0}, {0, -7}, {0, 3}, {1, 0}, CTimeValue::maxTime};
    for (int i = 0; i < 6; ++i) {
        for (int k = 0; k < 6; ++k) {
            const CTimeValue& left = ordered[i];
            const CTimeValue& right = ordered[k];
            const int found[] = {left<right, left> right, left <= right, left >= right,
                                 left == right, left != right};
            const int expected[] = {i<k, i> k, i <= k, i >= k, i == k, i != k};
            EXPECT_EQ(std::vector(found, found + 6), std::vector(expected, expected + 6));
        }
    }
}

TEST(Stopwatch, MeasuresItsSplitsFromItsStart) {
    static zoerrlog::platform::WallTime now = {100, 999999900};
    zoerrlog::platform::SetClockSource([] { return now; });
    CStopwatch watch;
    EXPECT_EQ(watch.GetLastIndex(), -1);
    EXPECT_EQ(PartsOf(watch.GetLastSplit()), Parts(-1, -1));
    watch.Start();
    EXPECT_EQ(CTimeValue::GetCurrentFileTime(), static_cast<long long>(kEpoch) + 1009999999);
    now = {102, 1000};
    watch.Split();
    now = {99, 0};  // the clock was set back
    watch.Split();
    EXPECT_EQ(watch.GetLastIndex(), 1);
    EXPECT_EQ(PartsOf(watch.GetSplit(0)), Parts(1, 2));
    EXPECT_EQ(PartsOf(watch.GetLastSplit()), Parts(-1, -999999));
    EXPECT_EQ(PartsOf(watch.GetSplit(2)), Parts(-1, -1));
    watch.Start();
    EXPECT_EQ(watch.GetLastIndex(), -1);
    zoerrlog::platform::SetClockSource(nullptr);
}

}  // namespace
