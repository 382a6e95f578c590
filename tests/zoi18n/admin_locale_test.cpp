#include <gtest/gtest.h>
#include <zoi18n/zoi18n.h>

#include <string>

#include "zoi18n/child_process.h"

namespace {

TEST(AdminLocale, IsEnglishUntilAnotherIsChosen) {
    EXPECT_EQ(zotest::RunInChild([] { return std::string(ZoGetAdminLocale()) == "en" ? 0 : 1; }),
              0);
}

TEST(AdminLocale, AcceptsNamesOfLocalesOnly) {
    const std::string longest(31, 'x');
    for (const char* locale :
         {"fr", "fr_CA", "zh-Hant", "de_DE.UTF-8@euro", "C", longest.c_str()}) {
        EXPECT_TRUE(ZoSetAdminLocale(locale)) << locale;
        EXPECT_STREQ(ZoGetAdminLocale(), locale);
    }
    ASSERT_TRUE(ZoSetAdminLocale("fr"));
    const std::string tooLong(32, 'x');
    for (const char* locale : {static_cast<const char*>(nullptr), "", "fr/CA", "fr\\CA", "fr CA",
                               "fr\n", "fr\xC3\xA9", tooLong.c_str()}) {
        EXPECT_FALSE(ZoSetAdminLocale(locale)) << locale;
        EXPECT_STREQ(ZoGetAdminLocale(), "fr");
    }
}

TEST(AdminLocale, PointersStayGoodUntilAndAfterThereIsNoRoom) {
    const int failedStep = zotest::RunInChild([] {
        if (!ZoSetAdminLocale("first")) {
            return 1;
        }
        const char* const first = ZoGetAdminLocale();
        int added = 0;
        while (added < 100 && ZoSetAdminLocale(("l" + std::to_string(added)).c_str())) {
            ++added;
        }
        if (added < 50 || added >= 64) {
            return 2;
        }
        const bool lastStays = std::string(ZoGetAdminLocale()) == "l" + std::to_string(added - 1);
        const bool knownOnesWork = ZoSetAdminLocale("first") && ZoGetAdminLocale() == first &&
                                   ZoSetAdminLocale("en") && std::string(first) == "first";
        return lastStays && knownOnesWork ? 0 : 3;
    });
    EXPECT_EQ(failedStep, 0);
}

}  // namespace
