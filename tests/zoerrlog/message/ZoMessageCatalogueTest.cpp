#include <gtest/gtest.h>
#include <zoi18n/zoi18n.h>
#include <zoxlate/zoxlate.h>

#include <atomic>
#include <latch>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include <zoerrlog/message/ZoErrLogMessage.h>

#include "support/TemporaryDirectory.h"
#include "zoerrlog/logger/components/TestComponent.h"

namespace {

constexpr unsigned int kError = 0xC000;
constexpr unsigned int kLegacy = 0x01000000;
constexpr unsigned int kControlled = zotest::kControlledComponent | kError | 5;

class Catalogue : public testing::Test {
protected:
    Catalogue() {
        m_directory.Write("ZoControlled_fr.properties",
                          "zo-login={0} connect\xC3\xA9 depuis {1}\n");
        WriteEnglish("zo-login={0} logged in from {1}\nzo-quote=it''s {0}\nzo-empty=\n");
    }

    void WriteEnglish(const std::string& texts) const {
        m_directory.Write("ZoControlled.properties", texts);
        EXPECT_TRUE(CZoXlate::SetResourceDirectory(m_directory.Path().c_str()));
    }

    const zotest::TemporaryDirectory m_directory;
};

TEST_F(Catalogue, WritesTheFixedTextOfEveryCaseWithoutACatalogue) {
    const std::string noLibrary = "[zo-log-00001] missing component library\n";
    const struct {
        unsigned int id;
        std::string body;
        const char* severity;
    } cases[] = {
        {0, "[INVALID MESSAGE TYPE]" + noLibrary, "UNKNOWN"},
        {kLegacy | 0x4001, "[INFO][zo-log-00000] {0} it's\n", "INFO"},
        {kLegacy | 0x8000 | 0x3FFF, "[WARNING][zo-log-00000] {0} it's\n", "WARN"},
        {kLegacy | 0xFF0000 | kError, "[ERROR][zo-log-00000] {0} it's\n", "ERROR"},
        {kLegacy | 1, "[INVALID MESSAGE TYPE][zo-log-00000] {0} it's\n", "UNKNOWN"},
        {0xFF000000 | kError | 1, "[ERROR]" + noLibrary, "ERROR"},
        {zotest::kAbsentComponent | kError, "[ERROR]" + noLibrary, "ERROR"},
        {zotest::kNoEntryPointComponent | kError | 1, "[ERROR]" + noLibrary, "ERROR"},
        {zotest::kNullEntryPointComponent | kError | 1, "[ERROR]" + noLibrary, "ERROR"},
        {zotest::kPlainComponent | kError | 1, "[ERROR]" + noLibrary, "ERROR"},
        {zotest::kControlledComponent | kError, "[ERROR][zo-log-00002] missing message key\n",
         "ERROR"},
    };
    CZoErrLogMessage record(false);
    record.GetArgList() << "{0} it's";
    for (const auto& testCase : cases) {
        SCOPED_TRACE(testing::Message() << std::hex << testCase.id);
        record.CleanUpMessage();
        EXPECT_EQ(record.FormatMessageA(testCase.id), testCase.body);
        EXPECT_STREQ(record.GetMsgSeverity(), testCase.severity);
        // Of the same message once more.
        EXPECT_EQ(record.FormatMessageA(0), testCase.body + testCase.body);
    }
}

TEST_F(Catalogue, TakesTheTextOfTheLocaleOrElseTheKeyItself) {
    const struct {
        const char* locale;
        const char* entry;
        std::vector<std::string> arguments;
        std::string text;
    } cases[] = {
        {"en", "zo-login", {"Ann", "host"}, "Ann logged in from host"},
        {"fr", "zo-login", {"Ann", "host"}, "Ann connect\xC3\xA9 depuis host"},
        {"en", "zo-login", {}, "{0} logged in from {1}"},
        {"en", "zo-login", {"{1}", ""}, "{1} logged in from "},
        {"fr", "zo-quote", {"{0}"}, "it's {0}"},
        {"en", "zo-quote", {}, "it''s {0}"},
        {"en", "zo-empty", {"a"}, ""},
        {"fr", "{0} is no key", {"a"}, "a is no key"},
    };
    for (const auto& testCase : cases) {
        SCOPED_TRACE(testCase.text);
        SetControlledEntry(testCase.entry);
        ASSERT_TRUE(ZoSetAdminLocale(testCase.locale));
        CZoErrLogMessage record(false);
        for (const std::string& argument : testCase.arguments) {
            record.GetArgList() << argument;
        }
        const std::string key = std::string("[") + testCase.entry + "] ";
        record.FormatLogProlog("file", 0, 0);
        const std::string prolog = record.GetBuffer();
        EXPECT_EQ(record.FormatMessageA(kControlled),
                  prolog + "[ERROR]" + key + testCase.text + "\n");
    }
    SetControlledEntry("zo-login");
    CZoErrLogMessage record(false);
    record.GetArgList() << "Ann";
    EXPECT_STREQ(record.FormatMessageForTrace(kControlled), "[zo-login] Ann logged in from {1}");
}

TEST_F(Catalogue, CutsTextsAt4095BytesBetweenCharacters) {
    const struct {
        std::string text;
        std::size_t kept;
    } cases[] = {
        {std::string(4095, 'x'), 4095},
        {std::string(4096, 'x'), 4095},
        {std::string(4093, 'x') + "\xC3\xA9", 4095},
        {std::string(4094, 'x') + "\xC3\xA9", 4094},
        {std::string(4092, 'x') + "\xF0\x9F\x98\x80", 4092},
    };
    SetControlledEntry("long");
    for (const auto& testCase : cases) {
        const std::string kept = testCase.text.substr(0, testCase.kept);
        WriteEnglish("long=" + testCase.text + "\n");
        CZoErrLogMessage record(false);
        EXPECT_EQ(record.FormatMessageA(kControlled), "[ERROR][long] " + kept + "\n");
        EXPECT_EQ(record.FormatMessageForTrace(kControlled), "[long] " + kept);
        record.GetArgList() << testCase.text;
        EXPECT_EQ(record.FormatMessageForTrace(kLegacy), "[zo-log-00000] " + kept);
    }
}

// Whatever the buffer's size: terminated inside it, and nothing written behind it.
TEST_F(Catalogue, FitsACallersBuffer) {
    CZoErrLogMessage record(false);
    for (const std::string whole : {"{0}", "0123456789"}) {
        for (std::size_t size = 1; size <= 16; ++size) {
            std::string buffer(32, '#');
            record.PreformatMessage(kLegacy, "en", buffer.data(), size);
            EXPECT_EQ(buffer.substr(size), std::string(32 - size, '#'));
            EXPECT_LT(std::char_traits<char>::length(buffer.c_str()), size);
            EXPECT_TRUE(whole.starts_with(buffer.c_str()));
        }
        record.GetArgList() << "0123456789";
    }
    EXPECT_STREQ(record.PreformatMessage(kLegacy, "en", nullptr, 0), "zo-log-00000");
}

std::string TextOf(unsigned int id, bool forTrace = false) {
    CZoErrLogMessage record(false);
    record.GetArgList() << "Ann"
                        << "host";
    return forTrace ? record.FormatMessageForTrace(id) : record.FormatMessageA(id);
}

TEST_F(Catalogue, ShowsAChangeOfTheDirectoryOrTheLocaleInTheNextLine) {
    const zotest::TemporaryDirectory other;
    other.Write("ZoControlled.properties", "zo-login={1}: {0}\n");
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {m_directory.Path().c_str(), "en", "Ann logged in from host"},
        {other.Path().c_str(), "en", "host: Ann"},
        {m_directory.Path().c_str(), "en", "Ann logged in from host"},
        {"the same", "fr", "Ann connect\xC3\xA9 depuis host"},
        {other.Path().c_str(), "fr", "host: Ann"},
        {m_directory.Path().c_str(), "fr", "Ann connect\xC3\xA9 depuis host"},
        {"the same", "en", "Ann logged in from host"},
    };
    SetControlledEntry("zo-login");
    for (const auto& [directory, locale, text] : cases) {
        EXPECT_EQ(CZoXlate::SetResourceDirectory(directory), *directory == '/');
        ASSERT_TRUE(ZoSetAdminLocale(locale));
        // The second time it is remembered.
        EXPECT_EQ(TextOf(kControlled), "[ERROR][zo-login] " + text + "\n");
        EXPECT_EQ(TextOf(kControlled), "[ERROR][zo-login] " + text + "\n");
    }
}

// Two threads write log lines and two trace lines, in different locales, and of more messages than
// are remembered, so that they get into each other's way.
TEST_F(Catalogue, GivesThreadsWholeTextsWhileTheDirectoryChanges) {
    constexpr unsigned int kMessages = 80;
    const zotest::TemporaryDirectory other;
    const zotest::TemporaryDirectory* const directories[] = {&m_directory, &other};
    std::string texts[2][2];  // by directory; the second is for trace lines
    for (const std::size_t i : {0U, 1U}) {
        const std::string text(300, i == 0 ? 'a' : 'b');
        directories[i]->Write("ZoControlled_fr.properties", "long=line " + text);
        directories[i]->Write("ZoControlled.properties", "long=trace " + text);
        texts[i][0] = "[ERROR][long] line " + text + "\n";
        texts[i][1] = "[long] trace " + text;
    }
    SetControlledEntry("long");
    ASSERT_TRUE(ZoSetAdminLocale("fr"));
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(m_directory.Path().c_str()));
    std::atomic<bool> stop{false};
    std::atomic<int> wrong{0};
    std::latch started(5);
    std::vector<std::jthread> threads;
    for (const bool forTrace : {false, false, true, true}) {
        threads.emplace_back([&, forTrace] {
            started.arrive_and_wait();
            for (unsigned int i = 0; !stop; i = (i + 1) % kMessages) {
                const std::string text = TextOf(kControlled + i, forTrace);
                wrong += text == texts[0][forTrace] || text == texts[1][forTrace] ? 0 : 1;
            }
        });
    }
    started.arrive_and_wait();
    for (std::size_t turn = 1; turn <= 200; ++turn) {
        EXPECT_TRUE(CZoXlate::SetResourceDirectory(directories[turn % 2]->Path().c_str()));
        // Nobody else changes it, so from here on there is but one text.
        for (unsigned int i = 0; i < kMessages; ++i) {
            EXPECT_EQ(TextOf(kControlled + i), texts[turn % 2][0]);
        }
    }
    stop = true;
    threads.clear();
    EXPECT_EQ(wrong, 0);
}

}  // namespace
