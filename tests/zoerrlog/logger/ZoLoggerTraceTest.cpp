#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>

#include <zoerrlog/zoerrlog.h>

#include "support/TemporaryDirectory.h"

namespace {

enum : unsigned int { kFunction = 7, kData = 52, kLegacy = 0x01010000 };
enum Kind { kPlain, kAsync, kUnopened, kDeaf, kNone, kSame };
using Journals = std::array<std::string, 4>;

// Writes down what is done to it, until its end.
struct Output final : CZoLogOutput {
    explicit Output(std::string& text, Kind of = kPlain) : journal(text), kind(of) {}
    ~Output() override { journal += "gone "; }
    bool Open() override { return journal += "open ", kind != kUnopened; }
    bool Log(CZoErrLogMessage& line) override { return journal += line.GetBuffer(), kind != kDeaf; }
    bool Close() override { return journal += "close ", true; }
    bool IsAsync() override { return kind == kAsync; }
    void SetHeaders(CZoErrLogMessage&, CZoErrLogMessage&) override { journal += "heads "; }
    std::string& journal;
    const Kind kind;
};

CZoLogger& g_logger = *theLogger();
constexpr const char* kBoth = "Log/Legacy\ndata: Function, Data\nFunction ==f";
constexpr const char* kOne = "Log/Legacy\ndata: Data";

// Without settings there is no file. Local time goes with keeping.
bool Enable(CZoLogger& logger, CZoLogOutput* output, CZoLogOutput* output2, const char* settings,
            int format = 2, bool keep = false) {
    const zotest::TemporaryDirectory directory;
    directory.Write(*settings != 0 ? "conf" : "other", std::string("components: ") + settings);
    return logger.EnableTrace(output, output2, format, std::string("|").c_str(),
                              directory.File("conf").c_str(), keep, keep, false);
}

std::string Line(CZoTraceData& record) {
    record.LeaveNoBody();
    EXPECT_TRUE(record.SetFieldValue(kFunction, "f") && record.SetFieldValue(kData, "d"));
    return record.Format() ? record.GetFormattedTraceMessage() : "none";
}

bool TraceLine(CZoLogger& logger) {
    CZoTraceData* record = nullptr;
    return logger.ShouldTraceAlloc(kLegacy, &record) && Line(*record) != "none" && record->Log();
}

TEST(EnableTrace, RefusesWithoutAnyChangeOrFailsWithoutTheEarlierOutputs) {
    const std::string line = "<TraceMessage>\n\t<Data>d</Data>\n</TraceMessage>\n";
    const std::string kept = "open " + line + "close gone ";
    const std::string gone = "open close gone ";
    const std::tuple<Kind, Kind, const char*, bool, Journals> cases[] = {
        {kNone, kPlain, kBoth, false, {kept, kept}},
        {kPlain, kSame, kBoth, false, {kept, kept}},
        {kAsync, kPlain, kBoth, false, {kept, kept}},
        {kPlain, kPlain, "", false, {kept, kept}},
        {kPlain, kPlain, "Log\ncomponents: Log", false, {kept, kept}},
        {kUnopened, kPlain, kBoth, false, {gone, gone, "open "}},
        {kPlain, kUnopened, kBoth, false, {gone, gone, "open close ", "open "}},
        {kUnopened, kPlain, kBoth, true, {gone, kept, "open "}}};
    for (const auto& [kind, kind2, settings, keep, expected] : cases) {
        Journals journals;
        Output first(journals[2], kind);
        Output second(journals[3], kind2);
        CZoLogOutput* const output = kind != kNone ? &first : nullptr;
        CZoLogOutput* const output2 = kind2 != kSame ? &second : output;
        EXPECT_FALSE(Enable(g_logger, output, output2, settings, 2, true));
        EXPECT_TRUE(Enable(g_logger, new Output(journals[0]), new Output(journals[1]), kOne, 3));
        EXPECT_FALSE(Enable(g_logger, output, output2, settings, 2, keep));
        EXPECT_EQ(g_logger.TraceEnabled(0), expected[1] == kept);
        EXPECT_EQ(TraceLine(g_logger), expected[1] == kept);
        g_logger.DisableTrace(false);
        EXPECT_EQ(journals, expected) << kind << kind2 << keep;
    }
}

TEST(EnableTrace, KeepingReplacesTheFirstOutputAlone) {
    Journals journals;
    Output spare(journals[3]);
    EXPECT_TRUE(Enable(g_logger, new Output(journals[0]), new Output(journals[1], kDeaf), kOne));
    EXPECT_EQ(journals, (Journals{"open heads Data\n====\n", "open Data\n====\n"}));
    const int version = CZoLogger::m_iConfigVersion;
    journals = {};
    EXPECT_TRUE(Enable(g_logger, new Output(journals[2]), &spare, kBoth, 0, true));
    journals[2] = "";
    EXPECT_FALSE(TraceLine(g_logger) || g_logger.ShouldUseLocalTime());
    EXPECT_EQ(journals, (Journals{"close gone ", "d\n", "d\n", "open "}));
    g_logger.DisableTrace(true);
    EXPECT_TRUE(g_logger.TraceEnabled(0) && !g_logger.FieldTraced(kData) && !TraceLine(g_logger));
    EXPECT_TRUE(Enable(g_logger, new Output(journals[0], kAsync), nullptr, kOne, 0, true));
    EXPECT_TRUE(g_logger.FieldTraced(kData) && CZoLogger::m_iConfigVersion == version);
    g_logger.DisableTrace(false);
    EXPECT_GT(CZoLogger::m_iConfigVersion, version);
    EXPECT_EQ(journals[1] + journals[2] + journals[3], "d\nd\nclose gone d\nclose gone open ");
}

TEST(Questions, AreAnsweredByComponentInAnyOrder) {
    const std::tuple<unsigned int, bool, bool> cases[] = {
        {0, true, true},           {kLegacy, true, true},     {0x0101FFFF, true, true},
        {0x01000000, false, true}, {0x0100FFFF, false, true}, {0x01020001, false, false},
        {0x02010000, false, false}};
    std::string journal;
    CZoTraceData own;
    CZoTraceData* taken = &own;
    for (std::size_t i = 0; i < 4 * std::size(cases); ++i) {
        const std::size_t round = i / std::size(cases);
        if (i % std::size(cases) == 0) {
            EXPECT_TRUE(Enable(g_logger, new Output(journal), nullptr, round % 2 ? "Log" : kOne));
        }
        const auto& [id, inLegacy, inAll] = cases[i * (round + 1) % std::size(cases)];
        const bool traced = g_logger.TraceEnabled(id);
        CZoTraceData* record = nullptr;
        EXPECT_EQ(traced, round % 2 ? inAll : inLegacy) << round << " " << id;
        EXPECT_EQ(g_logger.ShouldTrace(id, &own), traced && id != 0);
        EXPECT_EQ(g_logger.ShouldTraceAlloc(id, &record) && record, traced && id != 0);
    }
    EXPECT_FALSE(g_logger.ShouldTrace(kLegacy, nullptr) || g_logger.TraceAlloc(nullptr) ||
                 g_logger.ShouldTraceAlloc(kLegacy, nullptr) || g_logger.TraceAlloc(&taken) ||
                 g_logger.ShouldTraceAlloc(kLegacy, &taken) || taken != &own);
    g_logger.DisableTrace(false);
}

TEST(Records, FollowTheLoggerThatIsAskedButEndALineAsItBegan) {
    CZoLogger* const loggers[] = {getMyLogger("one"), getMyLogger("two")};
    bool both[] = {true, true};
    Journals journals;
    CZoTraceData record;
    EXPECT_TRUE(Enable(*loggers[1], new Output(journals[1]), nullptr, kBoth) &&
                Enable(g_logger, new Output(journals[2]), nullptr, kBoth));
    for (const std::size_t changed : {0, 0, 1, 1, 0}) {
        both[changed] = !both[changed];
        EXPECT_TRUE(Enable(*loggers[changed], new Output(journals[changed]), nullptr,
                           both[changed] ? kBoth : kOne));
        for (const std::size_t asked : {0, 1, 0, 1}) {
            journals = {};
            EXPECT_TRUE(loggers[asked]->ShouldTrace(kLegacy, &record));
            EXPECT_EQ(Line(record), both[asked] ? "f|d\n" : "d\n");
            EXPECT_TRUE(record.Log() && journals[asked] == (both[asked] ? "f|d\n" : "d\n"));
        }
    }
    record.SetLogger(&g_logger);
    EXPECT_TRUE(loggers[0]->ShouldTrace(kLegacy, &record) && removeMyLogger("one"));
    EXPECT_TRUE(loggers[1]->ShouldTrace(kLegacy, &record) && removeMyLogger("two"));
    EXPECT_FALSE(record.SetFieldValue(kFunction, "x"));
    EXPECT_TRUE(Line(record) == "f|d\n" && record.Log());
    EXPECT_EQ(journals, (Journals{"close gone ", "f|d\nclose gone ", "f|d\n"}));
    g_logger.DisableTrace(false);
}

TEST(AuditChannel, WritesTextsAsTheyStandToTheOutputThatOpenedLast) {
    CZoErrLogMessage message;
    message.FormatAuditMessage("%s", "100% a\tb ");
    std::string journal;
    Output unopened(journal, kUnopened);
    EXPECT_TRUE(g_logger.EnableAuditLogRollover(new Output(journal)));
    EXPECT_TRUE(g_logger.EnableAuditLogRollover(new Output(journal)));
    EXPECT_TRUE(g_logger.LogAuditMsg(message) && !g_logger.LogErrMsg(message));
    EXPECT_FALSE(g_logger.EnableAuditLogRollover(&unopened) || g_logger.LogAuditMsg(message));
    EXPECT_TRUE(g_logger.EnableAuditLogRollover(new Output(journal)));
    g_logger.DisableAuditLog();
    EXPECT_FALSE(g_logger.LogAuditMsg(message));
    EXPECT_EQ(journal, "open close gone open 100% a\tb close gone open open close gone ");
}

}  // namespace
