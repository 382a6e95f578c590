#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include <zoerrlog/message/ZoErrLogMessage.h>

namespace {

using namespace std::string_literals;

std::vector<std::string> ArgumentsOf(const CpaArgList& list) {
    std::array<const char*, CpaArgList::MAX_ARGC> argv = {};
    const auto count = list.toArgv(argv.data());
    for (unsigned long long i = 0; i < count; ++i) {
        EXPECT_EQ(list.argument(i), argv[i]) << i;
    }
    return {argv.begin(), argv.begin() + count};
}

TEST(ArgList, SplitsValuesAtZeroBytesAndKeepsThirteen) {
    const struct {
        std::vector<std::string> values;
        std::vector<std::string> arguments;
    } cases[] = {
        {{}, {}},
        {{"", "b", ""}, {"", "b", ""}},
        {{"\0a\0"s, "b"}, {"", "a", "", "b"}},
        {std::vector<std::string>(14, "a"), std::vector<std::string>(13, "a")},
        {{std::string(20, '\0')}, std::vector<std::string>(13)},
    };
    CpaArgList list;
    for (const auto& testCase : cases) {
        list.clear();
        for (const std::string& value : testCase.values) {
            list << value;
        }
        const CpaArgList copy(list);
        list << "more";
        EXPECT_EQ(ArgumentsOf(copy), testCase.arguments);
    }
}

TEST(MessageStatics, RefuseNullAndShortBuffersAndWriteNothingThen) {
    const struct {
        int minimum;
        std::function<bool(char*, int)> operation;
    } cases[] = {
        {10, CZoErrLogMessage::GetPid},
        {15, CZoErrLogMessage::GetTid},
        {25, [](char* buf, int len) { return CZoErrLogMessage::GetTime(0, buf, true, len); }},
        {25, [](char* buf, int len) { return CZoErrLogMessage::GetTime(3, buf, true, len); }},
    };
    for (const auto& testCase : cases) {
        std::string buffer(64, '#');
        for (const int length : {testCase.minimum - 1, 0, -1}) {
            EXPECT_FALSE(testCase.operation(buffer.data(), length)) << length;
        }
        EXPECT_FALSE(testCase.operation(nullptr, 64));
        EXPECT_EQ(buffer, std::string(64, '#'));
        EXPECT_TRUE(testCase.operation(buffer.data(), testCase.minimum));
        EXPECT_LT(static_cast<int>(std::strlen(buffer.c_str())), testCase.minimum);
    }
}

}  // namespace
