#include <gtest/gtest.h>
#include <zoxlate/zoxlate.h>

#include <array>
#include <atomic>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "zoi18n/child_process.h"
#include "zoi18n/temporary_directory.h"
#include "zoxlate/text_of.h"

namespace {

using zotest::TemporaryDirectory;

// The allocators of the sanitizers do not release their locks in a forked child, as malloc does.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kChildMayDeadlockInAllocator = true;
#else
constexpr bool kChildMayDeadlockInAllocator = false;
#endif

// Two directories whose texts tell which one they are from.
class BundleThreads : public testing::Test {
protected:
    void SetUp() override {
        for (std::size_t i = 0; i < m_directories.size(); ++i) {
            const std::string mark = std::to_string(i);
            m_directories[i].Write("m.properties", "a=" + mark + "\nb=" + mark);
            m_directories[i].Write("m_fr.properties", "b=" + mark);
        }
        ASSERT_TRUE(Switch(0));
    }

    [[nodiscard]] bool Switch(std::size_t i) const {
        return CZoXlate::SetResourceDirectory(m_directories[i % 2].Path().c_str());
    }

    // Both texts of a bundle are from the same directory, before and after others had a turn.
    static bool ReadOnce(const char* locale) {
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

    template <class Function>
    void WhileOthersRead(Function function) {
        std::vector<std::thread> readers;
        for (int i = 0; i < 4; ++i) {
            readers.emplace_back([this, i] {
                while (!m_stop) {
                    m_wrong += ReadOnce(i % 2 == 0 ? "fr_CA" : "de") ? 0 : 1;
                }
            });
        }
        function();
        m_stop = true;
        for (std::thread& reader : readers) {
            reader.join();
        }
        EXPECT_EQ(m_wrong, 0);
    }

private:
    std::array<TemporaryDirectory, 2> m_directories;
    std::atomic<bool> m_stop{false};
    std::atomic<int> m_wrong{0};
};

TEST_F(BundleThreads, ReadersSeeOneDirectoryAtATime) {
    WhileOthersRead([this] {
        std::thread second([this] {
            for (std::size_t i = 0; i < 300; ++i) {
                EXPECT_TRUE(Switch(i));
            }
        });
        for (std::size_t i = 0; i < 300; ++i) {
            EXPECT_TRUE(Switch(i + 1));
        }
        second.join();
    });
}

TEST_F(BundleThreads, AForkedChildGoesOnAtOnce) {
    WhileOthersRead([this] {
        for (std::size_t i = 0; i < 40; ++i) {
            // What is known already is found without an allocation, so that the child of a
            // sanitized program gets by as well.
            EXPECT_TRUE(Switch(i) && ReadOnce("fr"));
            EXPECT_EQ(zotest::RunInChild([&] {
                          if (!ReadOnce("fr")) {
                              return 1;
                          }
                          if (kChildMayDeadlockInAllocator) {
                              return 0;
                          }
                          const bool switched = Switch(i + 1);
                          const auto text = zotest::TextOf("m", "fr", "a");
                          return switched && text == std::to_string((i + 1) % 2) ? 0 : 2;
                      }),
                      0);
        }
    });
}

}  // namespace
