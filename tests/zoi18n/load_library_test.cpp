#include <dlfcn.h>
#include <gtest/gtest.h>
#include <zoi18n/zoi18n.h>

#include <climits>
#include <string>

namespace {

TEST(ZoLoadLibrary, FindsLibrariesBesideItselfAndKeepsTheirSymbolsPrivate) {
    void* const library = ZoLoadLibrary("zotestplugin");
    ASSERT_NE(library, nullptr) << ::dlerror();
    EXPECT_NE(::dlsym(library, "ZoTestPlugin"), nullptr);
    EXPECT_EQ(::dlsym(RTLD_DEFAULT, "ZoTestPlugin"), nullptr);
    EXPECT_EQ(::dlclose(library), 0);
}

TEST(ZoLoadLibrary, RefusesWhatIsNoBareNameOfALibrary) {
    const std::string overlong(PATH_MAX, 'x');
    for (const char* name :
         {static_cast<const char*>(nullptr), "", "zotestabsent", "/../lib/libzotestplugin",
          "../lib/zotestplugin", "x\\zotestplugin", overlong.c_str()}) {
        EXPECT_EQ(ZoLoadLibrary(name), nullptr) << name;
    }
}

}  // namespace
