#include <zoerrlog/base/ZoFile.h>

#include "zoerrlog/output/OutputTestSupport.h"

TEST(ZoFile, ReadsLinesWithALengthThatTellsHowTheyEnded) {
    // Contents, a size, and what four calls return and store.
    const std::tuple<const char*, int, const char*> cases[] = {
        {"ab\ncd", 80, "3:ab\n;3:cd;0:untouched;0:untouched;"},
        {"abcdefghij\n", 4, "5:abcd;5:efgh;3:ij\n;0:untouched;"},
        {"\nabc\nabcd\n", 4, "1:\n;4:abc\n;5:abcd;1:\n;"},
        {"ab", 0, "1:;1:;1:;1:;"}};
    const zotest::TemporaryDirectory folder;
    for (const auto& [content, size, expected] : cases) {
        CZoFile file;
        ASSERT_TRUE(file.OpenFile(folder.Write("file", content).c_str(), 3));
        std::string results;
        for (int i = 0; i < 4; ++i) {
            char buffer[100] = "untouched";
            results += std::to_string(file.ReadLine(buffer, size)) + ':' + buffer + ';';
        }
        EXPECT_EQ(results, expected);
    }
}

TEST(ZoFile, OpensAsItsModeSaysAndClosesWhatItHeld) {
    const char* const contents[] = {"new", "new", "oldnew", "old"};
    const zotest::TemporaryDirectory folder;
    char data[] = "new";
    const int before = zotest::OpenDescriptors();
    for (int mode = 0; mode <= 3; ++mode) {
        CZoFile file;
        EXPECT_EQ(file.OpenFile(folder.File(std::to_string(mode)).c_str(), mode), mode != 3);
        ASSERT_TRUE(file.OpenFile(folder.Write("file", "old").c_str(), mode));
        EXPECT_FALSE(file.OpenFile("other", 4) || file.OpenFile(nullptr, 0));
        EXPECT_EQ(file.WriteFile(data, 3), mode != 3 ? 3 : -1);
        EXPECT_EQ(folder.Read("file"), contents[mode]);
        ASSERT_TRUE(file.OpenFile(folder.Path().c_str(), 3) && file.ReadLine(data, 3) == -1);
        EXPECT_TRUE(file.WriteFile(nullptr, 3) == -1 && file.ReadLine(nullptr, 3) == -1);
        EXPECT_FALSE(file.OpenFile("", 3) ||
                     file.WriteFile(data, 3) + file.ReadLine(data, 3) != -2);
        EXPECT_EQ(zotest::OpenDescriptors(), before);
    }
}
