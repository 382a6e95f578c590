#ifndef TESTS_ZOERRLOG_TRACE_TRACETESTSUPPORT_H
#define TESTS_ZOERRLOG_TRACE_TRACETESTSUPPORT_H

#include <support/TemporaryDirectory.h>
#include <zoerrlog/zoerrlog.h>

namespace zotest {

/// Traces into a text, by a configuration that each test writes.
struct TraceTest : testing::Test {
    ~TraceTest() override { theLogger()->DisableTrace(false); }

    bool Enable(const std::string& file, int format = 0) {
        CZoLogger& logger = *theLogger();
        CZoLogOutput* const output = logger.NewLogOutput(0, Append, &text);
        const bool on = logger.EnableTrace(output, format, " ", file.c_str(), false, false, false);
        logger.DeleteLogOutput(on ? nullptr : output);
        return on;
    }

    /// The thread's record, for lines of these fields. The text then holds their heading.
    CZoTraceData& Trace(const std::string& fields, const std::string& filters, int format = 0) {
        const std::string content = "components Log\ndata " + fields + '\n' + filters;
        CZoTraceData* record = nullptr;
        text.clear();
        EXPECT_TRUE(Enable(folder.Write("conf", content), format));
        EXPECT_TRUE(theLogger()->ShouldTraceAlloc(0x01010000, &record)) << "Log/Legacy";
        return *record;
    }

    /// Sets a value, logs the line and returns it.
    template <typename Value>
    static std::string Line(CZoTraceData& record, unsigned id, Value value, bool passes = true) {
        EXPECT_EQ(record.SetFieldValue(id, value), passes);
        EXPECT_TRUE(record.Format() && record.Log() && !record.SetFieldValue(66, value));
        std::string line = record.GetFormattedTraceMessage();
        record.LeaveNoBody();
        return line;
    }

    static void Append(const char* line, int length, void* param) {
        static_cast<std::string*>(param)->append(line, static_cast<std::size_t>(length));
    }

    const TemporaryDirectory folder;
    std::string text;
};

}  // namespace zotest

#endif
