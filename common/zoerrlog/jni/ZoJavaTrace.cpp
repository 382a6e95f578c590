#include <zoerrlog/jni/ZoJavaTrace.h>

#include <algorithm>
#include <string>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/trace/ZoThreadState.h>
#include <zoerrlog/trace/ZoTraceData.h>

namespace zoerrlog::jni {
namespace {

bool SetTraced(CZoTraceData& record, const FieldText& field) {
    return !record.FieldTraced(field.field) || record.SetFieldValue(field.field, field.text);
}

// The record takes these from the process and the clock, whatever the number.
bool SetAutomatic(CZoTraceData& record) {
    const unsigned int fields[] = {kZoFieldPid, kZoFieldTid, kZoFieldDate, kZoFieldTime,
                                   kZoFieldPreciseTime};
    return std::all_of(std::begin(fields), std::end(fields), [&record](unsigned int field) {
        return !record.FieldTraced(field) || record.SetFieldValue(field, 0);
    });
}

}  // namespace

bool ShouldTraceNow(CZoLogger& logger, unsigned int componentId) {
    // 0 stands for tracing as a whole in a question, but is no component that could trace.
    return componentId != 0 && logger.TraceEnabled(componentId) && CZoTraceSupresser::isTracing();
}

void WriteTraceLine(CZoTraceData& record, std::initializer_list<FieldText> fields) {
    const CZoTraceSupresser whileWriting;
    const bool wanted =
        std::all_of(fields.begin(), fields.end(),
                    [&record](const FieldText& field) { return SetTraced(record, field); }) &&
        SetAutomatic(record);
    if (wanted && record.Format()) {
        // Java callers are told of no failure.
        static_cast<void>(record.Log());
    }
    record.LeaveNoBody();
}

void WarnOfTooManyArguments(unsigned int componentId, const char* format, const char* subject,
                            int sourceLine) {
    CZoLogger& logger = *theLogger();
    CZoTraceData* record = nullptr;
    if (!ShouldTraceNow(logger, componentId) || !logger.ShouldTraceAlloc(componentId, &record)) {
        return;
    }
    const std::string source = "ZoJNIEntryPoint:" + std::to_string(sourceLine);
    std::string message(format);
    message.replace(message.find("%s"), 2, subject);
    WriteTraceLine(*record, {{kZoFieldFunction, "ZoJNIEntryPoint::LogMsg"},
                             {kZoFieldMessage, message.c_str()},
                             {kZoFieldSrcFile, source.c_str()}});
}

}  // namespace zoerrlog::jni
