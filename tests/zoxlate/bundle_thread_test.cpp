#include <gtest/gtest.h>
#include <zoxlate/zoxlate.h>

#include <atomic>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"
#include "zoxlate/text_of.h"

namespace {

// The allocators of the sanitizers do not release their locks in a forked child, as malloc does.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kChildMayAllocate = false;
#else
constexpr bool kChildMayAllocate = true;
#endif

// Both texts of a bundle are from the same directory, before and after others had a turn.
bool ReadOnce(const char* locale) {
    CZoXlate* const bundle = CZoXlate::GetBundle("m", locale);
    if (bundle == nullptr || CZoXlate::GetBundle("none", locale) != nullptr) {
        return false;
    }
    const std::string_view a = bundle->GetText("a");
    std::this_thread::yield();
    const bool good = (a == "0" || a == "1") && a == bundle->GetText("b");
    bundle->Release();
    return good;
}

TEST(BundleThreads, ReadersAndForkedChildrenSeeOneDirectoryAtATime) {
    const zotest::TemporaryDirectory directories[2];
    for (std::size_t i = 0; i < 2; ++i) {
        const std::string mark = std::to_string(i);
        directories[i].Write("m.properties", "a=" + mark + "\nb=" + mark);
        directories[i].Write("m_fr.properties", "b=" + mark);
    }
    const auto setDirectory = [&](std::size_t i) {
        return CZoXlate::SetResourceDirectory(directories[i % 2].Path().c_str());
    };
    ASSERT_TRUE(setDirectory(0));
    std::atomic<bool> stop{false};
    std::atomic<int> wrong{0};
    std::vector<std::jthread> readers;
    for (const char* locale : {"fr_CA", "fr_CA", "de", "de"}) {
        readers.emplace_back([&, locale] {
            while (!stop) {
                wrong += ReadOnce(locale) ? 0 : 1;
            }
        });
    }
    std::jthread second([&] {
        for (std::size_t i = 0; i < 300; ++i) {
            wrong += setDirectory(i) ? 0 : 1;
        }
    });
    for (std::size_t i = 0; i < 300; ++i) {
        EXPECT_TRUE(setDirectory(i));
    }
    second.join();
    for (std::size_t i = 0; i < 40; ++i) {
        // What is known already is found without an allocation.
        EXPECT_TRUE(setDirectory(i) && ReadOnce("fr"));
        EXPECT_TRUE(zotest::SucceedsInChild([&] {
            EXPECT_TRUE(ReadOnce("fr"));
            if (kChildMayAllocate) {
                EXPECT_TRUE(setDirectory(i + 1));
                EXPECT_EQ(zotest::TextOf("m", "fr", "a"), std::to_string((i + 1) % 2));
            }
        }));
    }
    stop = true;
    readers.clear();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
