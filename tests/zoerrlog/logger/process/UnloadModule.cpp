// A plug-in of a host that does not know the logger: all of the logger comes and goes with it.
#include <string>

#include <zoerrlog/zoerrlog.h>

#include "zoerrlog/logger/CountingOutput.h"

extern "C" ZOERRLOG_EXPORT bool LogLine(zotest::OutputCounts* counts) {
    CZoErrLogMessage message;
    message.FormatLogProlog("plug-in", 1, 0);
    message.FormatMessageA(0x02004001);
    return theLogger()->SetLogOutput(new zotest::CountingOutput(*counts)) &&
           theLogger()->LogErrMsg(message);
}

extern "C" ZOERRLOG_EXPORT bool TraceLine(const char* configuration) {
    CZoLogger& logger = *theLogger();
    CZoTraceData* record = nullptr;
    const bool traced = logger.EnableTrace(logger.NewLogOutput(2, [](const char*, int) {}), 0,
                                           nullptr, configuration, false, false, false) &&
                        logger.TraceAlloc(&record) &&
                        record->SetFieldValue(0, std::string(5000, 'x').c_str()) &&
                        record->Format() && record->Log();
    return traced;
}
