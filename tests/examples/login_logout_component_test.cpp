#include <dlfcn.h>

#include <fstream>
#include <map>
#include <memory>
#include <regex>
#include <set>
#include <string>

#include <gmock/gmock.h>

#include <login_logout/LoginLogoutMessages.h>
#include <zoerrlog/logger/ZoErrLogComponent.h>

namespace {

struct LibraryCloser {
    void operator()(void* library) const { ::dlclose(library); }
};

class LoginLogoutComponentTest : public testing::Test {
protected:
    void SetUp() override {
        m_library.reset(::dlopen(COMPONENT_LIBRARY, RTLD_NOW | RTLD_LOCAL));
        ASSERT_NE(m_library, nullptr) << ::dlerror();
        const auto entry = reinterpret_cast<decltype(&GetComponentPtr)>(
            ::dlsym(m_library.get(), "GetComponentPtr"));
        ASSERT_NE(entry, nullptr);
        m_component = entry();
        ASSERT_NE(m_component, nullptr);
        EXPECT_EQ(entry(), m_component);
    }

    std::unique_ptr<void, LibraryCloser> m_library;
    CZoErrLogComponent* m_component = nullptr;
};

// Key by key the placeholders of a bundle file.
std::map<std::string, std::multiset<std::string>> Placeholders(const std::string& file) {
    std::map<std::string, std::multiset<std::string>> byKey;
    std::ifstream stream(std::string(RESOURCE_DIRECTORY) + "/" + file);
    const std::regex entry(R"((zo-\S+) = (.+))");
    const std::regex placeholder(R"(\{\d+\})");
    std::smatch match;
    for (std::string line; std::getline(stream, line);) {
        if (std::regex_match(line, match, entry)) {
            const std::string text = match.str(2);
            std::multiset<std::string>& found = byKey[match.str(1)];
            for (std::sregex_iterator i(text.begin(), text.end(), placeholder), end; i != end;
                 ++i) {
                found.insert(i->str());
            }
        }
    }
    return byKey;
}

TEST_F(LoginLogoutComponentTest, DescribesItself) {
    EXPECT_EQ(m_component->GetId(), login_logout::kComponentId);
    EXPECT_STREQ(m_component->GetBundleName(), "Login_Logout");
    EXPECT_STREQ(m_component->GetName(), "Login_Logout");
    EXPECT_STRNE(m_component->GetDescription(), "");

    int count = 0;
    ZoSubComponentInfo* array = nullptr;
    EXPECT_EQ(m_component->GetSubComponents(&count, &array), array);
    ASSERT_NE(array, nullptr);
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) {
        names.emplace_back(array[i].name);
        EXPECT_STRNE(array[i].description, "");
    }
    EXPECT_THAT(names, testing::ElementsAre("Authentication", "Send_Response", "Receive_Request"));
}

TEST_F(LoginLogoutComponentTest, KnowsItsMessagesWhateverTheirSeverity) {
    const char* const keys[] = {nullptr, "zo-login-00001", "zo-login-00002", "zo-login-00003",
                                nullptr};
    for (const unsigned int severity : {0U, 0x4000U, 0x8000U, 0xC000U}) {
        for (unsigned int number = 0; number < std::size(keys); ++number) {
            EXPECT_STREQ(m_component->GetMessage(login_logout::kComponentId | severity | number),
                         keys[number]);
        }
    }
}

TEST_F(LoginLogoutComponentTest, HasEveryTextInBothLanguages) {
    const auto english = Placeholders("Login_Logout.properties");
    EXPECT_EQ(english.size(), 3U);
    for (unsigned int number = 1; const char* key = m_component->GetMessage(number); ++number) {
        EXPECT_TRUE(english.contains(key)) << key;
    }
    EXPECT_EQ(english, Placeholders("Login_Logout_fr.properties"));
}

TEST_F(LoginLogoutComponentTest, DoesNotBringTheLoggerAlong) {
    EXPECT_EQ(::dlopen("libzoerrlog.so.1", RTLD_NOW | RTLD_NOLOAD), nullptr);
}

}  // namespace
