#include <gtest/gtest.h>
#include <zoxlate/zoxlate.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr char kUntouched = '\x7E';

struct Buffer {
    Buffer() { bytes.fill(kUntouched); }
    [[nodiscard]] bool UntouchedFrom(std::size_t position) const {
        return std::all_of(bytes.begin() + static_cast<std::ptrdiff_t>(position), bytes.end(),
                           [](char c) { return c == kUntouched; });
    }
    std::array<char, 256> bytes;
};

TEST(FormatMessage, PatternsFollowTheJavaRules) {
    struct Case {
        const char* pattern;
        std::string_view text;
    };
    const Case cases[] = {
        {nullptr, ""},
        {"", ""},
        {"plain", "plain"},
        {"{0}", "zero"},
        {"{1}-{0}-{1}", "{0}-zero-{0}"},
        {"a {2}.", "a ."},
        {"{00}", "zero"},
        {"{3} {18446744073709551616} {99999999999999999999999}",
         "{3} {18446744073709551616} {99999999999999999999999}"},
        {"{a} {} {0,number} {-1} { 0} } {", "{a} {} {0,number} {-1} { 0} } {"},
        {"{{0}}", "{zero}"},
        {"{0", "{0"},
        {"it''s {0}", "it's zero"},
        {"'{0}' {0}", "{0} zero"},
        {"'a''b' {0}", "a'b zero"},
        {"''{0}''", "'zero'"},
        {"'''{0}'''", "'{0}'"},
        {"{'0'}", "{0}"},
        {"{0} it's {0}", "zero its {0}"},
        {"{0}'", "zero"},
    };
    const char* args[] = {"zero", "{0}", nullptr};
    for (const Case& c : cases) {
        Buffer buffer;
        CZoXlate::FormatMessageA(buffer.bytes.data(), buffer.bytes.size(), c.pattern, 3, args);
        EXPECT_STREQ(buffer.bytes.data(), std::string(c.text).c_str());
        EXPECT_TRUE(buffer.UntouchedFrom(c.text.size() + 1));
    }
    Buffer buffer;
    CZoXlate::FormatMessageA(buffer.bytes.data(), buffer.bytes.size(), "{0}", 3, nullptr);
    EXPECT_STREQ(buffer.bytes.data(), "{0}");
}

TEST(FormatMessage, TextsThatDoNotFitAreCutBetweenCharacters) {
    // Every part of the output as it may not be split, with runs of all the lengths around a word.
    const std::vector<std::string> characters = {
        "a", "\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x99\x82", "b", "c", "\xE2\x82\xAC",
        "\xF0\x9F\x99\x82", "\xF0\x9F\x99\x82", "d", "e", "f", "\xC3\xA9",
        // No characters: a continuation alone, a beginning without its rest, too many.
        "\x82", "\xE2", "g", "\xF0\x9F", "h", "\x80", "\x80", "\x80", "\x80", "\x80", "\xC3"};
    std::string pattern;
    std::string expected;
    for (int round = 0; round < 3; ++round) {
        for (const std::string& character : characters) {
            expected += character;
        }
    }
    pattern = expected.substr(0, expected.size() / 3) + "{0}" + "'" +
              expected.substr(0, expected.size() / 3) + "'";
    const std::string argument = expected.substr(0, expected.size() / 3);
    const char* args[] = {argument.c_str()};
    std::vector<std::size_t> boundaries;
    for (std::size_t at = 0; at < expected.size();) {
        for (const std::string& character : characters) {
            // A cut inside what is no character may be anywhere.
            const bool whole = character != "\xF0\x9F";
            boundaries.push_back(at);
            if (!whole) {
                boundaries.push_back(at + 1);
            }
            at += character.size();
        }
    }
    boundaries.push_back(expected.size());
    for (std::size_t size = 0; size < expected.size() + 3; ++size) {
        SCOPED_TRACE(size);
        Buffer buffer;
        CZoXlate::FormatMessageA(buffer.bytes.data(), size, pattern.c_str(), 1, args);
        if (size == 0) {
            EXPECT_TRUE(buffer.UntouchedFrom(0));
            continue;
        }
        const std::size_t fitting =
            *std::prev(std::upper_bound(boundaries.begin(), boundaries.end(), size - 1));
        EXPECT_EQ(std::string_view(buffer.bytes.data(), fitting),
                  std::string_view(expected).substr(0, fitting));
        EXPECT_EQ(buffer.bytes[fitting], '\0');
        EXPECT_TRUE(buffer.UntouchedFrom(fitting + 1));
    }
    CZoXlate::FormatMessageA(nullptr, 10, pattern.c_str(), 1, args);
}

TEST(FormatMessage, LongRunsAreCopiedWhole) {
    for (std::size_t length = 0; length < 100; ++length) {
        std::string argument(length, 'x');
        for (std::size_t i = 0; i < length; ++i) {
            argument[i] = static_cast<char>('A' + i % 26);
        }
        const char* args[] = {argument.c_str()};
        Buffer buffer;
        CZoXlate::FormatMessageA(buffer.bytes.data(), ~0UL, "<{0}>", 1, args);
        EXPECT_EQ(buffer.bytes.data(), "<" + argument + ">");
        EXPECT_TRUE(buffer.UntouchedFrom(length + 3));
    }
}

}  // namespace
