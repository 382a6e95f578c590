#include <gtest/gtest.h>
#include <zoi18n/zoi18n.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

TEST(AdminLocaleThreads, ReadersSeeWholeNamesThatStayAsTheyWere) {
    static const std::vector<std::string> locales = {"en", "fr_CA", "de_DE.UTF-8@euro", "zh-Hant"};
    std::atomic<int> writing{2};
    std::atomic<int> wrong{0};
    std::vector<std::jthread> threads;
    for (std::size_t i = 0; i < 2; ++i) {
        threads.emplace_back([&, i] {
            for (std::size_t round = i; round < 2000; ++round) {
                wrong += ZoSetAdminLocale(locales[round % locales.size()].c_str()) ? 0 : 1;
            }
            --writing;
        });
        threads.emplace_back([&] {
            while (writing != 0) {
                const char* const locale = ZoGetAdminLocale();
                const std::string before = locale;
                std::this_thread::yield();
                const bool known = std::count(locales.begin(), locales.end(), before) == 1;
                wrong += known && before == locale ? 0 : 1;
            }
        });
    }
    threads.clear();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
