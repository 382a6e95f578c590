#include <gtest/gtest.h>

#include <string>

#include <zoerrlog/message/ZoErrLogMessage.h>

TEST(TraceLayout, IsTheSameToTheByteForEveryLine) {
    constexpr const char* kNames[] = {"Time", "Pid", "Message", "", "", ""};
    constexpr const char* kValues[] = {"12:00:01", "4242", "Started", "12:00:01", "x", ""};
    constexpr int kWidths[] = {8, 6, 10, 5, 0, 2};
    const std::tuple<int, const char*, int, const char*> cases[] = {
        {0, nullptr, 3, "[12:00:01][4242][Started]\n"},
        {1, nullptr, 6, "12:00:01  4242    Started     12:00      \n"},
        {2, "|", 3, "12:00:01|4242|Started\n"},
        {2, "|", 1, "12:00:01\n"},
        {2, nullptr, 3, "12:00:014242Started\n"},
        {3, "Line", 2, "<Line>\n\t<Time>12:00:01</Time>\n\t<Pid>4242</Pid>\n</Line>\n"},
        {4, "|", 3, "\n"}};
    for (const auto& [format, tag, fields, line] : cases) {
        CZoErrLogMessage message(false);
        message.BeginTraceFormat(format, false, tag);
        for (int i = 0; i < fields; ++i) {
            message.FormatTraceField(kValues[i], kNames[i]);
            if (format == 1) {
                message.FormatTraceField(kValues[i], kWidths[i]);
            }
        }
        message.EndTraceFormat();
        EXPECT_STREQ(message.GetBuffer(), line) << format;
    }
}

TEST(FreeText, IsCutForTraceLinesAndWholeForTheAuditLog) {
    CZoErrLogMessage message(false);
    for (const std::size_t length : {1U, 4095U, 4096U, 10000U}) {
        const std::string text(length, 'x');
        const char* const block = CZoErrLogMessage::FormatTraceMessage("%s", text.c_str());
        EXPECT_EQ(block, text.substr(0, 4095));
        CZoErrLogMessage::FreeFormattedMessage(block);
        EXPECT_TRUE(message.FormatAuditMessage("%s", text.c_str()));
        EXPECT_TRUE(message.FormatAuditMessage("<%s>", message.GetBuffer()));
        for (const char* const nothing : {static_cast<const char*>(nullptr), ""}) {
            EXPECT_EQ(CZoErrLogMessage::FormatTraceMessage(nothing, 1), nullptr);
            EXPECT_FALSE(message.FormatAuditMessage(nothing, 1));
        }
        message.SetFormattedMessage(nullptr);
        EXPECT_EQ(message.GetBuffer(), '<' + text + '>');
    }
}
