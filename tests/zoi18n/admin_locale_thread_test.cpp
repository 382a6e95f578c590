#include <gtest/gtest.h>
#include <zoi18n/zoi18n.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <string_view>
#include <thread>
#include <vector>

namespace {

TEST(AdminLocaleThreads, ReadersSeeWholeNamesThatStayAsTheyWere) {
    static constexpr std::array<std::string_view, 4> locales = {"en", "fr_CA", "de_DE.UTF-8@euro",
                                                                "zh-Hant"};
    const auto isKnown = [](std::string_view text) {
        return std::find(locales.begin(), locales.end(), text) != locales.end();
    };
    std::atomic<bool> stop{false};
    std::atomic<int> wrong{0};
    std::vector<std::thread> readers;
    for (int i = 0; i < 3; ++i) {
        readers.emplace_back([&] {
            while (!stop) {
                const char* const locale = ZoGetAdminLocale();
                const std::string_view before = locale;
                std::this_thread::yield();
                wrong += isKnown(before) && before == locale ? 0 : 1;
            }
        });
    }
    std::vector<std::thread> writers;
    for (std::size_t i = 0; i < 2; ++i) {
        writers.emplace_back([&, i] {
            for (std::size_t round = 0; round < 2000; ++round) {
                wrong += ZoSetAdminLocale(locales[(round + i) % locales.size()].data()) ? 0 : 1;
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    stop = true;
    for (std::thread& reader : readers) {
        reader.join();
    }
    EXPECT_EQ(wrong, 0);
}

}  // namespace
