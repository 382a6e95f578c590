// A plug-in of a host that does not know the logger: all of the logger comes and goes with it.
#include <zoerrlog/zoerrlog.h>

#include "zoerrlog/logger/CountingOutput.h"

extern "C" ZOERRLOG_EXPORT bool LogLine(zotest::OutputCounts* counts) {
    CZoErrLogMessage message;
    message.FormatLogProlog("plug-in", 1, 0);
    message.FormatMessageA(0x02004001);
    return theLogger()->SetLogOutput(new zotest::CountingOutput(*counts)) &&
           theLogger()->LogErrMsg(message);
}
