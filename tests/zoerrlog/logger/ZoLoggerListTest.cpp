#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <tuple>

#include <zoerrlog/zoerrlog.h>

#include "support/TemporaryDirectory.h"

namespace {

TEST(Registry, FindsLoggersByTheirExactNames) {
    std::string name = "Agent";
    CZoLogger* const agent = getMyLogger(name.c_str());
    name = "Other";
    for (const char* const other : {"agent", "Other", "", static_cast<const char*>(nullptr)}) {
        EXPECT_FALSE(removeMyLogger(other));
        CZoLogger* const made = getMyLogger(other);
        EXPECT_TRUE(made != agent && made == theLoggerList()->GetLogger(other));
        EXPECT_EQ(removeMyLogger(other), other != nullptr && *other != '\0');
    }
    EXPECT_TRUE(getMyLogger("Agent") == agent && removeMyLogger("Agent"));
}

TEST(InitLogger, ContinuesOrBacksUpAnExistingFileAndLimitsIt) {
    const std::string head = "FunctionData\n============\n";
    // The log, then its backups, the oldest first.
    const std::tuple<bool, int, int, std::string> cases[] = {
        {true, 0, 0, "old " + head + "1\n2\n~"},
        {false, 0, 0, head + "1\n2\n~old ~"},
        {true, 1, 0, head + "2\n~old " + head + "1\n~"},
        {false, 1, 0, head + "2\n~old ~" + head + "1\n~"},
        {false, 1, 1, head + "2\n~" + head + "1\n~"}};
    const zotest::TemporaryDirectory directory;
    const std::string conf = directory.Write("conf", "components: Log\ndata: Function, Data\n");
    const std::string none = directory.File("none");
    for (const auto& [append, maxSize, maxBackups, expected] : cases) {
        const zotest::TemporaryDirectory logs;
        ASSERT_TRUE(ZoInitLogger(append, true, maxSize, 2, "", conf.c_str(),
                                 logs.Write("trace.log", "old ").c_str(), maxBackups));
        EXPECT_FALSE(ZoInitLogger(true, false, 0, 0, "", "", none.c_str(), 0) ||
                     ZoInitLogger(true, false, 0, 0, "", conf.c_str(), "", 0) ||
                     ZoInitLogger(true, true, 0, 0, "", none.c_str(), none.c_str(), 0));
        EXPECT_TRUE(theLogger()->ShouldUseLocalTime() && !std::filesystem::exists(none));
        for (const char* const number : {"1", "2"}) {
            CZoTraceData* record = nullptr;
            ASSERT_TRUE(theLogger()->TraceAlloc(&record) && record->CleanUpData());
            // More than half of the limit, and left out of the comparison.
            EXPECT_TRUE(record->SetFieldValue(52, std::string(600000, 'x').c_str()) &&
                        record->SetFieldValue(7, number) && record->Format() && record->Log());
            record->LeaveNoBody();
        }
        std::string texts;
        const std::filesystem::directory_iterator entries(logs.Path());
        for (const auto& file : std::set<std::filesystem::path>(begin(entries), end(entries))) {
            texts += logs.Read(file.filename().string()) + "~";
        }
        std::erase(texts, 'x');
        EXPECT_EQ(texts, expected) << append << maxSize << maxBackups;
    }
    theLogger()->DisableTrace(false);
}

}  // namespace
