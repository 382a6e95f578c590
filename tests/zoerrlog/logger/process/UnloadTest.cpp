#include <dlfcn.h>
#include <gtest/gtest.h>

#include <fstream>
#include <future>
#include <iterator>
#include <string>
#include <thread>

#include "support/TemporaryDirectory.h"
#include "zoerrlog/logger/CountingOutput.h"

namespace {

constexpr int kRounds = 30;

// What stays behind is for the leak check to find.
TEST(Unload, ClosesTheOutputOnceAndLeavesNothingOfTheLogger) {
    const zotest::TemporaryDirectory directory;
    const std::string configuration = directory.Write("conf", "components Log\ndata Message\n");
    for (int round = 0; round < kRounds; ++round) {
        SCOPED_TRACE(round);
        void* const module = ::dlopen(ZOERRLOG_TEST_MODULE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(module, nullptr) << ::dlerror();
        const auto log =
            reinterpret_cast<bool (*)(zotest::OutputCounts*)>(::dlsym(module, "LogLine"));
        const auto trace = reinterpret_cast<bool (*)(const char*)>(::dlsym(module, "TraceLine"));
        ASSERT_TRUE(log != nullptr && trace != nullptr);
        zotest::OutputCounts counts;
        // One that has logged outlives the library.
        std::promise<void> logged;
        std::promise<void> unloaded;
        std::thread survivor([&] {
            EXPECT_TRUE(log(&counts));
            logged.set_value();
            unloaded.get_future().wait();
        });
        logged.get_future().wait();
        // One that traces and ends leaves a record behind, with a value that was not cleaned up.
        std::thread([&] { EXPECT_TRUE(trace(configuration.c_str())); }).join();
        EXPECT_EQ(::dlclose(module), 0);
        EXPECT_EQ(counts.taken, 1);
        EXPECT_EQ(counts.closed, 1);
        EXPECT_EQ(counts.destroyed, 1);
        unloaded.set_value();
        survivor.join();
        std::ifstream file("/proc/self/maps");
        const std::string maps{std::istreambuf_iterator<char>(file), {}};
        for (const char* const library : {"/libzoerrlog", "/libzoi18n", "component.so"}) {
            EXPECT_EQ(maps.find(library), std::string::npos) << library;
        }
    }
}

}  // namespace
