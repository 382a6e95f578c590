#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <zoerrlog/message/ZoErrLogMessage.h>

#include "zoerrlog/logger/components/TestComponent.h"

namespace {

constexpr int kId = static_cast<int>(zotest::kControlledComponent | 0x8001);

TEST(MessageMarkers, TakeTheArgumentsInTurn) {
    char x[] = "x";
    char y[] = "y";
    char marker[] = "%s";
    char both[] = "<%s%s>";
    const struct {
        const char* entry;
        std::vector<char*> arguments;
        std::string text;
    } cases[] = {
        {"a %s b %s", {x, y}, "a x b y"},
        {"a %s b %s", {marker, y}, "a y b %s"},
        {"a %s b %s", {both, x, y}, "a <xy> b %s"},
        {"a %s b %s", {x}, "a x b %s"},
        {"a %s b %s", {}, "a %s b %s"},
        {"a %s", {x, y}, "a x"},
        {"a %s b %s", {nullptr, y}, "a  b y"},
        {"%%s %d %n %5s", {x}, "%x %d %n %5s"},
    };
    for (const auto& testCase : cases) {
        SetControlledEntry(testCase.entry);
        std::vector<char*> arguments = testCase.arguments;
        CZoErrLogMessage record(false);
        EXPECT_TRUE(
            record.FormatLogMessage(kId, arguments.data(), static_cast<int>(arguments.size())));
        EXPECT_EQ(record.GetBuffer(), "[WARNING] " + testCase.text + "\n");
        EXPECT_STREQ(record.GetMsgSeverity(), "UNKNOWN");
    }
}

TEST(MessagePattern, FormatsTheEntryAndCutsAt4095Characters) {
    const std::string large(5000, 'L');
    const struct {
        const char* entry;
        const char* argument;
        std::string text;
    } cases[] = {
        {"user %s of %d", "Ann", "user Ann of 42"},
        {"%2$d %1$s %%", "Ann", "42 Ann %"},
        {"%s", "%d %n", "%d %n"},
        {"%s", large.c_str(), large.substr(0, 4095)},
        {large.c_str(), "", large.substr(0, 4095)},
        {"before %99999999999s after", "", ""},
    };
    for (const auto& testCase : cases) {
        SetControlledEntry(testCase.entry);
        CZoErrLogMessage record(false);
        EXPECT_TRUE(record.FormatLogMessage(kId, testCase.argument, 42));
        EXPECT_EQ(record.GetBuffer(), "[WARNING] " + testCase.text + "\n");
        record.CleanUpMessage();
        EXPECT_TRUE(record.FormatLogMessageForTrace(kId, testCase.argument, 42));
        EXPECT_EQ(record.GetBuffer(), " " + testCase.text);
        EXPECT_STREQ(record.GetMsgSeverity(), "WARN");
    }
}

TEST(MessagePattern, IsRefusedWithoutAnEntryAndLeavesTheText) {
    SetControlledEntry("text");
    char* none[] = {nullptr};
    for (const unsigned int id : {zotest::kControlledComponent | 0x8000, 0x01008004U, 0x00008001U,
                                  0xFF008001U, zotest::kNoEntryPointComponent | 0x8001}) {
        const int signedId = static_cast<int>(id);
        CZoErrLogMessage record(false);
        EXPECT_FALSE(record.FormatLogMessage(signedId, none, 1));
        EXPECT_FALSE(record.FormatLogMessage(signedId, "x", 1));
        EXPECT_FALSE(record.FormatLogMessageForTrace(signedId, "x"));
        EXPECT_STREQ(record.GetBuffer(), "");
    }
}

// Only what writes to memory is left out, and its argument is still taken.
TEST(HostilePattern, NeverWritesToMemory) {
    const struct {
        const char* entry;
        const char* text;
    } cases[] = {
        {"%s%n%d", "one42"},
        {"%s%hhn%d", "one42"},
        {"%s%lln%d", "one42"},
        {"%s%qn%d", "one42"},
        {"%s%jn%d", "one42"},
        {"%s%zn%d", "one42"},
        {"%s%-5n%d", "one42"},
        {"%s%05.3ln%d", "one42"},
        {"%s%'n%d", "one42"},
        {"%3$d%2$n%1$s", "42one"},
        {"%1$s%2$hhn%3$d", "one42"},
        {"%%n%s%n%%n%d", "%none%n42"},
        {"%s%*n", ""},
        {"%2$.*1$n", ""},
    };
    // Its last byte ends it as a text: a string conversion may be given it.
    constexpr long long kUntouched = 0x0022334455667788;
    for (const auto& testCase : cases) {
        SetControlledEntry(testCase.entry);
        long long target = kUntouched;
        CZoErrLogMessage record(false);
        EXPECT_TRUE(record.FormatLogMessage(kId, "one", &target, 42));
        EXPECT_EQ(record.GetBuffer(), "[WARNING] " + std::string(testCase.text) + "\n");
        EXPECT_EQ(target, kUntouched);
    }
}

}  // namespace
