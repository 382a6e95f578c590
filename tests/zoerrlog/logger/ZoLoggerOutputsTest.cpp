#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

#include <zoerrlog/zoerrlog.h>

#include "zoerrlog/logger/CountingOutput.h"

namespace {

TEST(LoggerOutputs, AreClosedAndDestroyedBeforeTheNextOneAlsoWhenThatDoesNotOpen) {
    CZoLogger& logger = *theLogger();
    CZoErrLogMessage message(false);
    CZoLogOutput* const refusing = logger.NewLogOutput(1, "/no/such/folder/log", 1, 0, 0);
    zotest::OutputCounts counts;
    for (CZoLogOutput* const failing : {static_cast<CZoLogOutput*>(nullptr), refusing}) {
        EXPECT_FALSE(logger.LogErrMsg(message));
        EXPECT_TRUE(logger.SetLogOutput(new zotest::CountingOutput(counts)));
        EXPECT_TRUE(logger.SetLogOutput(new zotest::CountingOutput(counts)));
        EXPECT_TRUE(logger.LogErrMsg(message));
        EXPECT_FALSE(logger.LogTraceMsg(message));
        EXPECT_FALSE(logger.SetLogOutput(failing));
        EXPECT_EQ(counts.destroyed, counts.opened);
    }
    EXPECT_EQ(counts.opened, 4);
    EXPECT_EQ(counts.taken, 2);
    EXPECT_EQ(counts.closed, 4);
    EXPECT_EQ(counts.outOfOrder, 0);
    // Still the host's, as is what the library did not make.
    logger.DeleteLogOutput(refusing);
    zotest::CountingOutput foreign(counts);
    logger.DeleteLogOutput(&foreign);
    EXPECT_EQ(counts.destroyed, 4);
}

struct Call {
    std::string text;
    void* param;
    std::thread::id thread;
    bool operator==(const Call&) const = default;
};

std::vector<Call> g_calls;

void OnParameterized(const char* text, int length, void* param) {
    EXPECT_EQ(text[length], '\0');
    g_calls.push_back(
        {{text, static_cast<std::size_t>(length)}, param, std::this_thread::get_id()});
}

void OnPlain(const char* text, int length) {
    OnParameterized(text, length, nullptr);
}

void OnAsyncParameterized(const char* text, int length, void (*release)(char*), void* param) {
    OnParameterized(text, length, param);
    release(const_cast<char*>(text));
}

void OnAsync(const char* text, int length, void (*release)(char*)) {
    OnAsyncParameterized(text, length, release, nullptr);
}

TEST(CallbackOutputs, HandOverTextLengthAndParameterOnTheLoggingThread) {
    CZoLogger& logger = *theLogger();
    int param = 0;
    const struct {
        CZoLogOutput* output;
        int type;
        bool async;
        void* param;
    } cases[] = {
        {logger.NewLogOutput(0, OnPlain), 2, false, nullptr},
        {logger.NewLogOutput(0, OnAsync), 3, true, nullptr},
        {logger.NewLogOutput(0, OnParameterized, &param), 4, false, &param},
        {logger.NewLogOutput(0, OnAsyncParameterized, &param), 5, true, &param},
    };
    for (const auto& testCase : cases) {
        EXPECT_EQ(testCase.output->GetType(), testCase.type);
        EXPECT_EQ(testCase.output->IsAsync(), testCase.async);
        ASSERT_TRUE(logger.SetLogOutput(testCase.output));
        g_calls.clear();
        CZoErrLogMessage message(false);
        message.GetArgList() << "a line";
        const std::string line = message.FormatMessageA(0x01004001);
        EXPECT_TRUE(logger.LogErrMsg(message));
        EXPECT_EQ(message.GetBuffer(), line);
        EXPECT_EQ(g_calls, (std::vector<Call>{{line, testCase.param, std::this_thread::get_id()}}));
    }
    logger.DisableLog();
}

TEST(CallbackOutputs, DoNotOpenWithoutTheirPointers) {
    CZoLogger& logger = *theLogger();
    int param = 0;
    for (CZoLogOutput* const output :
         {logger.NewLogOutput(4, OnParameterized, nullptr),
          logger.NewLogOutput(5, OnAsyncParameterized, nullptr),
          logger.NewLogOutput(4, ZoLogParameterizedCallback{}, &param),
          logger.NewLogOutput(5, ZoLogAsyncParameterizedCallback{}, &param)}) {
        EXPECT_FALSE(logger.SetLogOutput(output));
        logger.DeleteLogOutput(output);
    }
}

}  // namespace
