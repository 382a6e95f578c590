#include <dlfcn.h>

#include <fstream>
#include <regex>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include <login_logout/LoginLogoutMessages.h>
#include <zoerrlog/logger/ZoErrLogComponent.h>

namespace {

// Each key of a bundle file with each placeholder of its text.
std::multiset<std::string> Placeholders(const std::string& file) {
    std::multiset<std::string> found;
    std::ifstream stream(std::string(RESOURCE_DIRECTORY) + "/" + file);
    const std::regex placeholder(R"(\{\d+\})");
    for (std::string line; std::getline(stream, line);) {
        const std::string key = line.substr(0, line.find(" = "));
        for (std::sregex_iterator i(line.begin(), line.end(), placeholder), end; i != end; ++i) {
            found.insert(key + i->str());
        }
    }
    return found;
}

TEST(LoginLogoutComponent, HasEveryMessageInBothLanguagesAndNeedsNoLogger) {
    void* const library = ::dlopen(COMPONENT_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << ::dlerror();
    EXPECT_EQ(::dlopen("libzoerrlog.so.1", RTLD_NOW | RTLD_NOLOAD), nullptr);
    const auto entry =
        reinterpret_cast<decltype(&GetComponentPtr)>(::dlsym(library, "GetComponentPtr"));
    ASSERT_NE(entry, nullptr);
    CZoErrLogComponent* const component = entry();

    const auto placeholders = Placeholders("Login_Logout.properties");
    for (const unsigned int severity : {0U, 0x4000U, 0x8000U, 0xC000U}) {
        const unsigned int code = login_logout::kComponentId | severity;
        EXPECT_EQ(component->GetMessage(code), nullptr);
        for (const unsigned int number : {1U, 2U, 3U}) {
            const std::string key = "zo-login-0000" + std::to_string(number);
            EXPECT_STREQ(component->GetMessage(code | number), key.c_str());
            EXPECT_TRUE(placeholders.contains(key + "{0}")) << key;
        }
        EXPECT_EQ(component->GetMessage(code | 4), nullptr);
    }
    EXPECT_EQ(placeholders, Placeholders("Login_Logout_fr.properties"));
    ::dlclose(library);
}

}  // namespace
