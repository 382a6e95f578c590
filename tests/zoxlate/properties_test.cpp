#include <gtest/gtest.h>
#include <zoxlate/zoxlate.h>

#include <optional>
#include <random>
#include <string>

#include "support/TemporaryDirectory.h"
#include "zoxlate/text_of.h"

namespace {

using namespace std::string_literals;
using zotest::TemporaryDirectory;
using zotest::TextOf;

TEST(Properties, FilesFollowTheJavaSyntax) {
    const struct {
        const char* name;
        std::string content;
        const char* key;
        std::optional<std::string> text;
    } cases[] = {
        {"colon", "k:v", "k", "v"},
        {"white space", "k\t\f v", "k", "v"},
        {"space around a separator", "  k \t=  v w ", "k", "v w "},
        {"only the first separator counts", "k = = v", "k", "= v"},
        {"comments", "# c=1\n  ! d=2\nk=v", "c", std::nullopt},
        {"both line ends", "a=1\r\n\r\nk=v\r\n", "k", "v"},
        {"continued", "k=a\\\n   b\\\\\\\r\n\tc", "k", "ab\\c"},
        {"no comment within a continuation", "k=a\\\n#b", "k", "a#b"},
        {"continued into the end", "k=a\\", "k", "a"},
        {"escapes", "k=\\t\\n\\r\\f\\q\\\\\\=", "k", "\t\n\r\fq\\="},
        {"separators in a key", "a\\=b\\:c\\ d=v", "a=b:c d", "v"},
        {"code units", "k=\\u0041\\u00e9\\u20AC", "k", "A\xC3\xA9\xE2\x82\xAC"},
        {"pair of surrogates", "k=\\uD83D\\uDE42", "k", "\xF0\x9F\x99\x82"},
        {"surrogates alone", "k=\\uD83Dx\\uDE42", "k", "\xEF\xBF\xBDx\xEF\xBF\xBD"},
        {"malformed code units", "k=\\u12G4\\u12", "k", "\\u12G4\\u12"},
        {"byte order mark", "\xEF\xBB\xBFk=v", "k", "v"},
        {"the last definition wins", "k=1\nk=2\nk:3", "k", "3"},
        {"keys are told apart by case", "k=v", "K", std::nullopt},
        {"a zero byte ends the text", "k=a\0b"s, "k", "a"},
    };
    const TemporaryDirectory directory;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        directory.Write("case.properties", c.content);
        ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
        EXPECT_EQ(TextOf("case", nullptr, c.key), c.text);
    }
}

TEST(Properties, EveryKeyOfALargeFileIsFoundBetweenAnyBytes) {
    std::mt19937 random(20240229);
    constexpr std::string_view likely = "\\u0dDk=: \t\r\n#!";
    std::string content;
    for (int i = 0; i < 3000; ++i) {
        for (auto left = random() % 200; left > 0; --left) {
            content +=
                random() % 4 == 0 ? static_cast<char>(random()) : likely[random() % likely.size()];
        }
        content += "\n\nkey" + std::to_string(i) + "=" + std::to_string(i) + "\n";
    }
    const TemporaryDirectory directory;
    directory.Write("large.properties", content);
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    for (int i = 0; i < 3000; ++i) {
        ASSERT_EQ(TextOf("large", "", ("key" + std::to_string(i)).c_str()), std::to_string(i));
    }
}

}  // namespace
