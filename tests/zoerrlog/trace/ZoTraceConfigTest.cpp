#include <gmock/gmock.h>

#include "TraceTestSupport.h"
#include "zoerrlog/output/OutputTestSupport.h"

using namespace std::string_literals;
using enum ZoTraceConfigEventKind;
using TraceConfig = zotest::TraceTest;

TEST_F(TraceConfig, SelectsWhatItNamesUnlessItIsRefused) {
    const std::string first = "components Login_Logout/Authentication\n";
    // What each selects of Log, its part, Login_Logout and its three; nothing: it is refused.
    const std::pair<std::string, std::string> cases[] = {
        {"", "000000"},
        {"# data\n \t\n #components Log", "000000"},
        {"data\n" + first, ""},
        {first + "Pid ==1", ""},
        {"version 1.1\ncomponents Login_Logout", "001111"},
        {"version 1.0\n" + first, "000111"},
        {first + "data\nversion: 1.1", "000100"},
        {"version 1.1\ncomponents:Nope,Log Login_Logout/Send_Response", "110010"}};
    const int before = zotest::OpenDescriptors();
    std::string expected;
    for (const auto& [file, selected] : cases) {
        EXPECT_EQ(Enable(folder.Write("conf", file)), !selected.empty());
        EXPECT_FALSE(Enable(folder.Path()) || Enable(folder.File("missing")));
        EXPECT_EQ(zotest::OpenDescriptors(), before);
        expected = selected.empty() ? expected : selected;
        std::string found;
        for (const unsigned int id : {0x0100U, 0x0101U, 0x0700U, 0x0701U, 0x0702U, 0x0703U}) {
            found += theLogger()->TraceEnabled(id << 16) ? '1' : '0';
        }
        EXPECT_EQ(found, expected) << file;
    }
}

TEST_F(TraceConfig, FiltersByTheLastLineOfAFieldWhetherItIsTracedOrNot) {
    const std::string filters =
        "User ==ab\nGroup !=ab\nDomain @@ab\nRealm !@ab\nPolicy ==\nRule !=\nDirectory @@\n"
        "AgentName !@\nAgentType:==ab\nTransactionID \t ==ab\nObjectClass==ab\nDomainOID =ab\n"
        "SearchKey == ab, \r\nErrorString ==x\nErrorString @@a\nErrorValue ==ab\0x\n#"s +
        std::string(8091, '.') + "ObjectOID ==ab";
    // Values, and whether each field, from number 9 on, lets them pass.
    const std::pair<const char*, std::string> cases[] = {
        {"", "0101101000110000"},     {"ab", "1010011011110111"},    {"AB", "0101011000110000"},
        {"cabd", "0110011000110100"}, {" ab, ", "0110011000111100"}, {"b", "0101011000110000"}};
    CZoTraceData& record = Trace("Message", filters);
    for (const auto& [value, passes] : cases) {
        std::string found;
        for (unsigned int field = 9; field < 9 + passes.size(); ++field) {
            found += record.SetFieldValue(field, value) ? '1' : '0';
        }
        EXPECT_EQ(found, passes) << value;
    }
}

TEST_F(TraceConfig, TellsWhatItMeetsInTheOrderOfTheFile) {
    using At = std::pair<ZoTraceConfigEventKind, int>;
    std::vector<At> events;
    const auto observer = [&](const auto& event) { events.emplace_back(event.kind, event.line); };
    const std::string refused = folder.Write("refused", "version 1.1\n\ndata");
    const std::string file = folder.Write(
        "conf",
        "version 2\ncomponents Log Nope Login_Logout/Authentication\n"
        "data User Nope User\0 Pid\nUser ==x\nUser !=y\nNope ==x\nTid==x\n\nTid =x\n"s +
            std::string(8092, ' ') + '\n' + std::string(8092, ' ') + "Pid ==1\nPid @@2\n");
    EXPECT_FALSE(theLogger()->ReadTraceConfiguration(refused.c_str(), observer));
    EXPECT_TRUE(theLogger()->ReadTraceConfiguration(file.c_str(), observer));
    const auto expected = testing::ElementsAre(
        At(kVersion, 1), At(kWrongSection, 3), At(kOtherVersion, 1), At(kComponent, 2),
        At(kUnknownComponent, 2), At(kComponent, 2), At(kZeroByte, 3), At(kField, 3),
        At(kUnknownField, 3), At(kRepeatedField, 3), At(kFilter, 4), At(kReplacedFilter, 5),
        At(kFilter, 5), At(kUnknownFilter, 6), At(kNoDelimiter, 7), At(kNoOperator, 9),
        At(kLongLine, 11), At(kFilter, 11), At(kReplacedFilter, 12), At(kFilter, 12),
        At(kNoVersion, 0), At(kOlderFileRule, 0), At(kOlderFileRule, 0));
    EXPECT_THAT(events, expected);
}
