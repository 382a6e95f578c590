#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <zoxlate/zoxlate.h>

#include <filesystem>
#include <optional>
#include <string>
#include <type_traits>

#include "zoi18n/child_process.h"
#include "zoi18n/temporary_directory.h"
#include "zoxlate/text_of.h"

namespace {

using zotest::TemporaryDirectory;
using zotest::TextOf;

using Text = std::optional<std::string>;

static_assert(!std::is_default_constructible_v<CZoXlate> &&
              !std::is_copy_constructible_v<CZoXlate> && !std::is_destructible_v<CZoXlate>);

TEST(Bundle, TextsComeFromTheMostSpecificFileThatHasThem) {
    const TemporaryDirectory directory;
    directory.Write("m.properties", "base=b\nfr=b\nca=b");
    directory.Write("m_fr.properties", "fr=f\nca=f");
    directory.Write("m_fr_CA.properties", "ca=c");
    directory.Write("only_de.properties", "k=d");
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    struct Case {
        const char* bundle;
        const char* locale;
        const char* key;
        Text text;
    };
    const Case cases[] = {
        {"m", "fr_CA", "ca", "c"},
        {"m", "fr_CA", "fr", "f"},
        {"m", "fr_CA", "base", "b"},
        {"m", "fr-CA", "ca", "c"},
        {"m", "fr_CA_x", "ca", "c"},
        {"m", "fr_CA.UTF-8@euro", "ca", "c"},
        {"m", "fr_BE", "ca", "f"},
        {"m", "fr__POSIX", "ca", "f"},
        {"m", "fr", "ca", "f"},
        {"m", "de", "ca", "b"},
        {"m", "f", "fr", "b"},
        {"m", "", "ca", "b"},
        {"m", nullptr, "ca", "b"},
        {"m", "fr", "none", std::nullopt},
        {"m", "fr", nullptr, std::nullopt},
        {"only", "de_AT", "k", "d"},
        {"only", "fr", "k", std::nullopt},
        {"only", nullptr, "k", std::nullopt},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(TextOf(c.bundle, c.locale, c.key), c.text)
            << c.bundle << ' ' << (c.locale == nullptr ? "null" : c.locale) << ' ' << c.key;
    }
}

TEST(Bundle, NamesCannotLeaveTheDirectory) {
    const TemporaryDirectory directory;
    std::filesystem::create_directories(directory.File("sub/m_"));
    for (const char* name : {"m", "sub/m", ".m", "sub/x"}) {
        directory.Write(name + std::string(".properties"), "k=v");
    }
    directory.Write("sub/m_/y.properties", "k=v");
    directory.Write(".properties", "k=v");
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.File("sub").c_str()));
    ASSERT_EQ(TextOf("m", "", "k"), Text("v"));
    const std::string overlong(256, 'x');
    for (const char* name : {static_cast<const char*>(nullptr), "", ".m", "../m", "./m", "..\\m",
                             "m\\x", overlong.c_str()}) {
        EXPECT_EQ(CZoXlate::GetBundle(name, ""), nullptr) << name;
    }
    for (const char* locale : {"/y", "\\y", ".y", overlong.c_str()}) {
        EXPECT_EQ(CZoXlate::GetBundle("m", locale), nullptr) << locale;
    }
}

TEST(Bundle, OnlyRegularFilesOfASaneSizeCount) {
    const TemporaryDirectory directory;
    std::filesystem::create_directory(directory.File("d.properties"));
    ASSERT_EQ(::mkfifo(directory.File("p.properties").c_str(), 0600), 0);
    const std::string head = "k=v\n";
    std::filesystem::resize_file(directory.Write("largest.properties", head), 16 << 20);
    std::filesystem::resize_file(directory.Write("larger.properties", head), (16 << 20) + 1);
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    EXPECT_EQ(CZoXlate::GetBundle("d", ""), nullptr);
    EXPECT_EQ(CZoXlate::GetBundle("p", ""), nullptr);
    EXPECT_EQ(CZoXlate::GetBundle("larger", ""), nullptr);
    EXPECT_EQ(TextOf("largest", "", "k"), Text("v"));
}

TEST(Bundle, FilesAreReadOnceAndAgainAfterADirectoryIsSet) {
    const TemporaryDirectory directory;
    directory.Write("m.properties", "k=1");
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    EXPECT_EQ(TextOf("m", "", "k"), Text("1"));
    EXPECT_EQ(TextOf("late", "", "k"), std::nullopt);
    directory.Write("m.properties", "k=2");
    directory.Write("late.properties", "k=2");
    EXPECT_EQ(TextOf("m", "", "k"), Text("1"));
    EXPECT_EQ(TextOf("late", "", "k"), std::nullopt);
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    EXPECT_EQ(TextOf("m", "", "k"), Text("2"));
    EXPECT_EQ(TextOf("late", "", "k"), Text("2"));
}

TEST(Bundle, OutlivesADirectoryUntilItIsReleased) {
    const TemporaryDirectory first;
    const TemporaryDirectory second;
    first.Write("m.properties", "k=1");
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(first.Path().c_str()));
    CZoXlate* const bundle = CZoXlate::GetBundle("m", "");
    CZoXlate* const again = CZoXlate::GetBundle("m", "");
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(second.Path().c_str()));
    again->Release();
    EXPECT_STREQ(bundle->GetText("k"), "1");
    EXPECT_EQ(CZoXlate::GetBundle("m", ""), nullptr);
    bundle->Release();
}

TEST(Bundle, MoreNamesThanAreRememberedAreStillAnswered) {
    const TemporaryDirectory directory;
    directory.Write("m.properties", "k=v");
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    for (int i = 0; i < 4200; ++i) {
        ASSERT_EQ(TextOf("m", std::to_string(i).c_str(), "k"), Text("v"));
    }
    EXPECT_EQ(CZoXlate::GetBundle("none", ""), nullptr);
}

TEST(Bundle, AShortageOfDescriptorsIsNotRemembered) {
    const TemporaryDirectory directory;
    directory.Write("m.properties", "k=v");
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    EXPECT_EQ(zotest::RunInChild([] {
                  rlimit limit{};
                  ::getrlimit(RLIMIT_NOFILE, &limit);
                  const rlimit none{0, limit.rlim_max};
                  ::setrlimit(RLIMIT_NOFILE, &none);
                  const bool missing = !TextOf("m", "", "k");
                  ::setrlimit(RLIMIT_NOFILE, &limit);
                  return missing && TextOf("m", "", "k") == Text("v") ? 0 : 1;
              }),
              0);
}

TEST(ResourceDirectory, WhatIsNoDirectoryLeavesTheEarlierOne) {
    const TemporaryDirectory directory;
    const std::string file = directory.Write("m.properties", "k=v");
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    for (const char* name : {static_cast<const char*>(nullptr), "", file.c_str(), "/no/such"}) {
        EXPECT_FALSE(CZoXlate::SetResourceDirectory(name));
        EXPECT_EQ(TextOf("m", "", "k"), Text("v"));
    }
}

TEST(ResourceDirectory, TakesBackslashesAndStaysWhenTheWorkingDirectoryChanges) {
    const TemporaryDirectory directory;
    std::filesystem::create_directories(directory.File("a/b"));
    directory.Write("a/b/m.properties", "k=v");
    EXPECT_EQ(zotest::RunInChild([&] {
                  std::filesystem::current_path(directory.Path());
                  const bool set = CZoXlate::SetResourceDirectory("a\\b");
                  std::filesystem::current_path("/");
                  return set && TextOf("m", "", "k") == Text("v") ? 0 : 1;
              }),
              0);
}

}  // namespace
