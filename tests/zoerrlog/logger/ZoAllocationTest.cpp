#include <gtest/gtest.h>
#include <zoxlate/zoxlate.h>

#include <atomic>
#include <cstdlib>
#include <new>
#include <string>

#include <zoerrlog/zoerrlog.h>

#include "support/TemporaryDirectory.h"
#include "zoerrlog/logger/components/TestComponent.h"

namespace {

std::atomic<long> g_allocations{0};

}  // namespace

// Those of the library come here too.
void* operator new(std::size_t size) {
    ++g_allocations;
    if (void* const block = std::malloc(size != 0 ? size : 1)) {
        return block;
    }
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    std::free(block);
}

namespace {

constexpr unsigned int kMessage = zotest::kControlledComponent | 0xC005;
constexpr unsigned int kPart = 0x01010000;

bool ErrorLine() {
    CZoErrLogMessage message;
    message.FormatLogProlog("Allocation.cpp", __LINE__, 0);
    message.GetArgList() << "a user" << std::string_view("an address") << "a port";
    message.FormatMessageA(kMessage);
    return theLogger()->LogErrMsg(message);
}

bool TraceLine() {
    CZoTraceData* line = nullptr;
    const bool written =
        theLogger()->ShouldTraceAlloc(kPart, &line) &&
        line->SetFieldValue(kZoFieldUser, "a user") &&
        line->SetFieldValue(kZoFieldReturnValue, 17.5) && line->SetFieldValue(kZoFieldDate, 0) &&
        line->SetFieldValue(kZoFieldMessage, line->FormatTraceMessage("%5d of %s", 3, "four")) &&
        line->Format() && line->Log();
    line->LeaveNoBody();
    return written;
}

bool AuditLine() {
    CZoErrLogMessage message;
    return message.FormatAuditMessage("%s has done it again\n", "a user") &&
           theLogger()->LogAuditMsg(message);
}

TEST(Lines, OfOrdinaryLengthAllocateNothing) {
    const zotest::TemporaryDirectory directory;
    directory.Write("ZoControlled.properties", "zo-login={0} from {1} through {2}\n");
    ASSERT_TRUE(CZoXlate::SetResourceDirectory(directory.Path().c_str()));
    SetControlledEntry("zo-login");
    const std::string config =
        directory.Write("conf", "components: Log\ndata: Date User ReturnValue Message\nUser @@ser");
    CZoLogger& logger = *theLogger();
    const auto file = [&](const char* name, int mode) {
        return logger.NewLogOutput(1, directory.File(name).c_str(), mode, 100, 0);
    };
    // The library's allocations are counted too.
    const long atStart = g_allocations;
    logger.DeleteLogOutput(logger.NewLogOutput(0));
    ASSERT_GT(g_allocations, atStart);
    for (const int mode : {CZoFileOutput::Append, CZoFileOutput::RolloverBySize}) {
        ASSERT_TRUE(logger.SetLogOutput(file("error", mode)));
        ASSERT_TRUE(logger.EnableAuditLogRollover(file("audit", mode)));
        for (int layout = 0; layout < 4; ++layout) {
            ASSERT_TRUE(logger.EnableTrace(file("trace", mode), layout, "|", config.c_str(), false,
                                           false, false));
            ASSERT_TRUE(ErrorLine() && TraceLine() && AuditLine());
            const long before = g_allocations;
            EXPECT_TRUE(ErrorLine() && TraceLine() && AuditLine());
            EXPECT_EQ(g_allocations, before) << "mode " << mode << ", layout " << layout;
        }
    }
    logger.DisableTrace(false);
    logger.DisableLog();
    logger.DisableAuditLog();
}

}  // namespace
