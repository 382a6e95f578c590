#include <gtest/gtest.h>
#include <zoxlate/zoxlate.h>

#include <algorithm>
#include <cstring>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace {

// Of a text of `size` bytes at most: what stands between its terminator and their end is undefined.
void ExpectBuffer(const std::string& buffer, const std::string& text, std::size_t size) {
    const std::string written = size == 0 ? "" : text + '\0';
    EXPECT_EQ(buffer.substr(0, written.size()), written);
    EXPECT_EQ(buffer.substr(size), std::string(buffer.size() - size, '~'));
}

void ExpectText(const std::string& text, std::size_t size, const char* pattern, const char** args) {
    std::string buffer(256, '~');
    CZoXlate::FormatMessageA(buffer.data(), size, pattern, 3, args);
    ExpectBuffer(buffer, text, size);

    const auto withLength = [](const char* data) {
        return CZoXlate::Text{data, data == nullptr ? 0 : std::strlen(data)};
    };
    CZoXlate::Text texts[3];
    std::transform(args, args + (args == nullptr ? 0 : 3), texts, withLength);
    buffer.assign(buffer.size(), '~');
    EXPECT_EQ(CZoXlate::FormatText(buffer.data(), size, withLength(pattern), 3,
                                   args == nullptr ? nullptr : texts),
              text.size());
    ExpectBuffer(buffer, text, size);
}

TEST(FormatMessage, PatternsFollowTheJavaRulesInBuffersOfEverySize) {
    const std::pair<const char*, std::string> cases[] = {
        {nullptr, ""},
        {"{0} plain", "zero plain"},
        {"{1}-{0}-{1}", "{0}-zero-{0}"},
        {"a {2}.", "a ."},
        {"{00}", "zero"},
        {"{3} {18446744073709551616} {a", "{3} {18446744073709551616} {a"},
        {"{a} {} {0,number} {-1} { 0} } {", "{a} {} {0,number} {-1} { 0} } {"},
        {"{{0}}", "{zero}"},
        {"it''s {0}", "it's zero"},
        {"'{0}' {0}", "{0} zero"},
        {"'a''b' {0}", "a'b zero"},
        {"'''{0}'''", "'{0}'"},
        {"{0} it's {0}", "zero its {0}"},
        {"{0}'", "zero"},
        {"longer than a word {0}, isn''t it", "longer than a word zero, isn't it"},
    };
    const char* args[] = {"zero", "{0}", nullptr};
    for (const auto& [pattern, text] : cases) {
        for (std::size_t size = 1; size <= text.size() + 2; ++size) {
            ExpectText(text.substr(0, size - 1), size, pattern, args);
        }
    }
    ExpectText("{0}", 256, "{0}", nullptr);
    ExpectText("", 0, "{0}", args);
    CZoXlate::FormatMessageA(nullptr, 10, "{0}", 3, args);
}

TEST(FormatText, TakesZeroBytesOfAnArgumentForContent) {
    const std::string argument("a\0{0}\0", 6);
    const CZoXlate::Text texts[] = {{argument.data(), argument.size()}};
    std::string buffer(32, '~');
    EXPECT_EQ(CZoXlate::FormatText(buffer.data(), 16, {"<{0}>", 5}, 1, texts), 8U);
    ExpectBuffer(buffer, '<' + argument + '>', 16);
}

TEST(FormatMessage, TextsThatDoNotFitAreCutBetweenCharacters) {
    // Bytes that make no character may be cut anywhere: a continuation alone, a beginning without
    // its rest, too many.
    std::istringstream characters(
        "a|\xC3\xA9|\xE2\x82\xAC|\xF0\x9F\x99\x82|b|\x82|\xE2|c|\xF0|\x9F|d|\x80|\x80|\x80|\x80|"
        "\xC3");
    std::string part;
    std::set<std::size_t> boundaries{0};
    for (std::string character; std::getline(characters, character, '|');) {
        part += character;
        boundaries.insert(part.size());
    }
    const std::string pattern = part + "{0}'" + part + "'";
    const std::string text = part + part + part;
    const char* args[] = {part.c_str(), nullptr, nullptr};
    for (std::size_t size = 1; size <= text.size() + 1; ++size) {
        std::size_t fitting = size - 1;
        while (!boundaries.contains(fitting % part.size())) {
            --fitting;
        }
        ExpectText(text.substr(0, fitting), size, pattern.c_str(), args);
    }
}

}  // namespace
