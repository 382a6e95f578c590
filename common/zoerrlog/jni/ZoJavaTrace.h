#ifndef ZOERRLOG_JNI_ZOJAVATRACE_H
#define ZOERRLOG_JNI_ZOJAVATRACE_H

#include <initializer_list>

class CZoLogger;
class CZoTraceData;

namespace zoerrlog::jni {

struct FieldText {
    unsigned int field;
    const char* text;
};

/// True when a trace line for the component may be built on this thread: it is selected, and the
/// thread is not building one already.
bool ShouldTraceNow(CZoLogger& logger, unsigned int componentId);

/// Sets the traced ones of `fields`, in their order, then those that the library fills; lays the
/// line out and logs it, unless a filter rejects it. Tracing is suppressed on the thread meanwhile
/// and allowed afterwards, and the record is clean.
void WriteTraceLine(CZoTraceData& record, std::initializer_list<FieldText> fields);

/// Says on the default logger's trace channel that a call was given too many arguments; `format`
/// has one "%s" for `subject`. Nothing when the component is not traced.
void WarnOfTooManyArguments(unsigned int componentId, const char* format, const char* subject,
                            int sourceLine);

}  // namespace zoerrlog::jni

#endif
