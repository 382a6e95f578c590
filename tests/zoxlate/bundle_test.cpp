#include <gtest/gtest.h>
#include <sys/stat.h>
#include <zoxlate/zoxlate.h>

#include <filesystem>
#include <optional>
#include <string>

#include "support/TemporaryDirectory.h"
#include "zoxlate/text_of.h"

namespace {

using zotest::TemporaryDirectory;
using zotest::TextOf;

TEST(Bundle, TextsComeFromTheMostSpecificFileThatHasThem) {
    const TemporaryDirectory directory;
    directory.Write("m.properties", "base=b\nfr=b\nca=b");
    directory.Write("m_fr.properties", "fr=f\nca=f");
    directory.Write("m_fr_CA.properties", "ca=c");
    directory.Write("only_de.properties", "k=d");
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    const struct {
        const char* bundle;
        const char* locale;
        const char* key;
        std::optional<std::string> text;
    } cases[] = {
        {"m", "fr_CA", "ca", "c"},
        {"m", "fr-CA", "ca", "c"},
        {"m", "fr_CA.UTF-8@euro", "ca", "c"},
        {"m", "fr_BE", "ca", "f"},
        {"m", nullptr, "ca", "b"},
        {"m", "fr", nullptr, std::nullopt},
        {"only", "de_AT", "k", "d"},
        {"only", "fr", "k", std::nullopt},
    };
    for (const auto& [bundle, locale, key, text] : cases) {
        EXPECT_EQ(TextOf(bundle, locale, key), text) << bundle << ' ' << locale << ' ' << key;
    }
}

TEST(Bundle, NothingButFilesOfASaneSizeInTheDirectoryIsFound) {
    const TemporaryDirectory directory;
    std::filesystem::create_directories(directory.File("sub/m_"));
    for (const char* name : {"m", "sub/m", "sub/.m", "sub/", "sub/m_/y"}) {
        directory.Write(name + std::string(".properties"), "k=v");
    }
    std::filesystem::create_directory(directory.File("sub/folder.properties"));
    ASSERT_EQ(::mkfifo(directory.File("sub/pipe.properties").c_str(), 0600), 0);
    std::filesystem::resize_file(directory.Write("sub/large.properties", "k=v\n"), (16 << 20) + 1);
    std::filesystem::current_path(directory.Path());
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(".\\sub"));
    std::filesystem::current_path("/");
    EXPECT_FALSE(CZoXlate::SetResourceDirectory(""));
    EXPECT_FALSE(CZoXlate::SetResourceDirectory(directory.File("m.properties").c_str()));
    EXPECT_EQ(TextOf("m", "", "k"), "v");
    const std::string overlong(256, 'x');
    for (const char* name : {static_cast<const char*>(nullptr), "", ".m", "../m", "./m", "..\\m",
                             overlong.c_str(), "folder", "pipe", "large"}) {
        EXPECT_EQ(CZoXlate::GetBundle(name, ""), nullptr) << name;
    }
    EXPECT_EQ(CZoXlate::GetBundle("m", "/y"), nullptr);
}

TEST(Bundle, FilesAreReadOnceAndAgainAfterADirectoryIsSet) {
    const TemporaryDirectory directory;
    directory.Write("m.properties", "k=1");
    for (const char* text : {"1", "2"}) {
        ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
        CZoXlate* const held = CZoXlate::GetBundle("m", "");
        directory.Write("m.properties", "k=2");
        EXPECT_EQ(TextOf("m", "", "k"), text);
        ASSERT_TRUE(CZoXlate::SetResourceDirectory("/"));
        EXPECT_EQ(CZoXlate::GetBundle("m", ""), nullptr);
        EXPECT_STREQ(held->GetText("k"), text);
        held->Release();
    }
}

}  // namespace
