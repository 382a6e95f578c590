#include <dlfcn.h>
#include <gtest/gtest.h>

#include <thread>

#include "zoi18n/temporary_directory.h"

namespace {

// What stays behind is for the leak check to find.
TEST(Unload, TheLibraryGoesAndComesAgainWithThreadsThatUsedIt) {
    const zotest::TemporaryDirectory directory;
    directory.Write("m.properties", "k=v");
    for (int round = 0; round < 20; ++round) {
        void* const module = ::dlopen(ZOXLATE_TEST_MODULE, RTLD_NOW | RTLD_LOCAL);
        ASSERT_NE(module, nullptr) << ::dlerror();
        const auto use = reinterpret_cast<bool (*)(const char*)>(::dlsym(module, "UseBundle"));
        ASSERT_NE(use, nullptr);
        bool good = false;
        std::thread([&] { good = use(directory.Path().c_str()); }).join();
        EXPECT_TRUE(good);
        EXPECT_EQ(::dlclose(module), 0);
        EXPECT_EQ(::dlopen("libzoxlate.so.1", RTLD_NOW | RTLD_NOLOAD), nullptr);
    }
}

}  // namespace
