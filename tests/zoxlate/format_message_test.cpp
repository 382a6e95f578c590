#include <gtest/gtest.h>
#include <zoxlate/zoxlate.h>

#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace {

// Writes into the first `size` bytes of a buffer; the rest of it must stay as it was.
void ExpectText(const std::string& text, std::size_t size, const char* pattern, const char** args) {
    std::string buffer(256, '~');
    CZoXlate::FormatMessageA(buffer.data(), size, pattern, 3, args);
    std::string expected = size == 0 ? text : text + '\0';
    expected.resize(buffer.size(), '~');
    EXPECT_EQ(buffer, expected);
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
