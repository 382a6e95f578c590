#include <gtest/gtest.h>
#include <zoxlate/zoxlate.h>

#include <optional>
#include <random>
#include <string>

#include "zoi18n/temporary_directory.h"
#include "zoxlate/text_of.h"

namespace {

using namespace std::string_literals;
using zotest::TemporaryDirectory;
using zotest::TextOf;

using Text = std::optional<std::string>;

TEST(Properties, FilesFollowTheJavaSyntax) {
    struct Case {
        const char* name;
        std::string content;
        const char* key;
        Text text;
    };
    const Case cases[] = {
        {"equals sign", "k=v", "k", "v"},
        {"colon", "k:v", "k", "v"},
        {"white space", "k\t\f v", "k", "v"},
        {"space around a separator", "  k \t=  v w ", "k", "v w "},
        {"only the first separator counts", "k = = v", "k", "= v"},
        {"no value", "k", "k", ""},
        {"no key", "=v", "", "v"},
        {"comments", "# c=1\n  ! d=2\nk=v", "c", std::nullopt},
        {"behind comments and blank lines", "# c\\\n \t\n!x\nk=v", "k", "v"},
        {"carriage returns", "a=1\rk=v\r", "k", "v"},
        {"both line ends", "a=1\r\n\r\nk=v\r\n", "k", "v"},
        {"continued", "k=a\\\n   b\\\r\n\tc", "k", "abc"},
        {"no comment within a continuation", "k=a\\\n#b", "k", "a#b"},
        {"two backslashes do not continue", "k=a\\\\\nb=c", "k", "a\\"},
        {"three do", "k=a\\\\\\\nb=c", "k", "a\\b=c"},
        {"a blank line ends a continuation", "k=a\\\n\nb=c", "b", "c"},
        {"continued into the end", "k=a\\", "k", "a"},
        {"nothing but a continuation", "\\\n\nk=v", "k", "v"},
        {"escapes", "k=\\t\\n\\r\\f\\q\\\\\\=", "k", "\t\n\r\fq\\="},
        {"leading space escaped", "k=\\  v", "k", "  v"},
        {"separators in a key", "a\\=b\\:c\\ d=v", "a=b:c d", "v"},
        {"escaped separator in a key", "a\\u003db=v", "a=b", "v"},
        {"code units", "k=\\u0041\\u00e9\\u20AC", "k", "A\xC3\xA9\xE2\x82\xAC"},
        {"pair of surrogates", "k=\\uD83D\\uDE42", "k", "\xF0\x9F\x99\x82"},
        {"high surrogate alone", "k=\\uD83Dx", "k", "\xEF\xBF\xBDx"},
        {"low surrogate alone", "k=\\uDE42\\uD83D", "k", "\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"malformed code units", "k=\\u12G4\\u12", "k", "\\u12G4\\u12"},
        {"UTF-8",
         "gr\xC3\xB6\xC3\x9F"
         "e=\xE2\x82\xAC",
         "gr\xC3\xB6\xC3\x9F"
         "e",
         "\xE2\x82\xAC"},
        {"byte order mark", "\xEF\xBB\xBFk=v", "k", "v"},
        {"the last definition wins", "k=1\nk=2\nk:3", "k", "3"},
        {"keys are told apart by case and length", "k=v", "K", std::nullopt},
        {"a zero byte ends the text", "k=a\0b"s, "k", "a"},
        {"empty file", "", "k", std::nullopt},
    };
    const TemporaryDirectory directory;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        directory.Write("case.properties", c.content);
        ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
        EXPECT_EQ(TextOf("case", nullptr, c.key), c.text);
    }
}

TEST(Properties, EveryKeyOfALargeFileIsFound) {
    const TemporaryDirectory directory;
    std::string content;
    for (int i = 0; i < 3000; ++i) {
        content += std::string(static_cast<std::size_t>(i % 23), 'k') + std::to_string(i) + "=" +
                   std::to_string(i) + "\n";
    }
    directory.Write("large.properties", content);
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    for (int i = 0; i < 3000; ++i) {
        const std::string key =
            std::string(static_cast<std::size_t>(i % 23), 'k') + std::to_string(i);
        ASSERT_EQ(TextOf("large", "", key.c_str()), Text(std::to_string(i)));
    }
    EXPECT_EQ(TextOf("large", "", "k3000"), std::nullopt);
}

TEST(Properties, AnyBytesAreAccepted) {
    const TemporaryDirectory directory;
    std::mt19937 random(20240229);
    constexpr std::string_view likely = "\\u0dDk=: \t\r\n#!";
    for (int round = 0; round < 300; ++round) {
        std::string content = "first=1\n";
        for (auto i = random() % 200; i > 0; --i) {
            content +=
                random() % 4 == 0 ? static_cast<char>(random()) : likely[random() % likely.size()];
        }
        directory.Write("noise.properties", content + "\n\nlast=2");
        ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
        EXPECT_EQ(TextOf("noise", "", "last"), Text("2"));
    }
}

}  // namespace
