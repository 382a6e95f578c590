#include <gtest/gtest.h>
#include <zoi18n/zoi18n.h>

#include <string>

#include "support/ChildProcess.h"

namespace {

TEST(AdminLocale, AcceptsNamesOfLocalesOnly) {
    const std::string longest(31, 'x');
    for (const char* locale : {"zh-Hant", "de_DE.UTF-8@euro", longest.c_str(), "fr"}) {
        EXPECT_TRUE(ZoSetAdminLocale(locale)) << locale;
        EXPECT_STREQ(ZoGetAdminLocale(), locale);
    }
    const std::string tooLong(32, 'x');
    for (const char* locale : {static_cast<const char*>(nullptr), "", "fr/CA", "fr\\CA", "fr CA",
                               "fr\n", "fr\xC3\xA9", tooLong.c_str()}) {
        EXPECT_FALSE(ZoSetAdminLocale(locale)) << locale;
        EXPECT_STREQ(ZoGetAdminLocale(), "fr");
    }
}

TEST(AdminLocale, PointersStayGoodWhenThereIsNoMoreRoom) {
    EXPECT_TRUE(zotest::SucceedsInChild([] {
        EXPECT_TRUE(ZoSetAdminLocale("first"));
        const char* const first = ZoGetAdminLocale();
        std::string last;
        for (int i = 0; i < 100; ++i) {
            const std::string locale = std::to_string(i) + "x";
            last = ZoSetAdminLocale(locale.c_str()) ? locale : last;
        }
        EXPECT_EQ(ZoGetAdminLocale(), last);
        EXPECT_NE(last, "99x");
        EXPECT_STREQ(first, "first");
        EXPECT_TRUE(ZoSetAdminLocale("first") && ZoGetAdminLocale() == first);
    }));
}

}  // namespace
