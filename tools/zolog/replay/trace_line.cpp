#include <zolog/replay/trace_line.h>

#include <string>
#include <string_view>

#include <login_logout/LoginLogoutMessages.h>
#include <zoerrlog/zoerrlog.h>

#include <zolog/replay/input_reader.h>
#include <zolog/replay/sshd_fields.h>

namespace zolog {

namespace {

// The record is the thread's: what a line leaves in it would show in the next one.
class RecordCleaner {
public:
    explicit RecordCleaner(CZoTraceData& record) : m_record(record) {}
    ~RecordCleaner() { m_record.LeaveNoBody(); }
    RecordCleaner(const RecordCleaner&) = delete;
    RecordCleaner& operator=(const RecordCleaner&) = delete;

private:
    CZoTraceData& m_record;
};

// A filter on a field that is not traced works only when the field is set, too.
bool IsWanted(const CZoTraceData& record, ZoDataField field) {
    return record.FieldTraced(field) || record.FieldFiltered(field);
}

bool SetText(CZoTraceData& record, ZoDataField field, std::string_view text) {
    return !IsWanted(record, field) || record.SetFieldValue(field, std::string(text).c_str());
}

bool SetMessage(CZoTraceData& record, std::string_view text) {
    return !IsWanted(record, kZoFieldMessage) ||
           record.SetFieldValue(kZoFieldMessage,
                                record.FormatTraceMessage("%s", std::string(text).c_str()));
}

bool SetSource(CZoTraceData& record, const InputLine& line) {
    return !IsWanted(record, kZoFieldSrcFile) ||
           SetText(record, kZoFieldSrcFile, line.fileName + (":" + std::to_string(line.number)));
}

// The record takes these from the process and the clock, whatever the number.
bool SetProcessAndTime(CZoTraceData& record) {
    for (const ZoDataField field :
         {kZoFieldPid, kZoFieldTid, kZoFieldDate, kZoFieldTime, kZoFieldPreciseTime}) {
        if (IsWanted(record, field) && !record.SetFieldValue(field, 0)) {
            return false;
        }
    }
    return true;
}

// False when a filter rejects the line. What the line does not carry is set as empty, for the
// filters to see.
bool SetFields(CZoTraceData& record, const InputLine& line) {
    const SshdFields fields = FindSshdFields(line.text);
    return SetText(record, kZoFieldFunction, fields.function) &&
           SetText(record, kZoFieldUser, fields.user) &&
           SetText(record, kZoFieldIPAddr, fields.address) &&
           SetText(record, kZoFieldIPPort, fields.port) &&
           SetText(record, kZoFieldAuthStatus, fields.authStatus) &&
           SetMessage(record, fields.message) && SetSource(record, line) &&
           SetProcessAndTime(record);
}

}  // namespace

TraceOutcome TraceLine(const InputLine& line) {
    CZoTraceData* record = nullptr;
    if (!theLogger()->ShouldTraceAlloc(login_logout::kAuthenticationId, &record)) {
        return TraceOutcome::kFilteredOut;
    }
    const RecordCleaner cleaner(*record);
    if (!SetFields(*record, line)) {
        return TraceOutcome::kFilteredOut;
    }
    return record->Format() && record->Log() ? TraceOutcome::kTraced : TraceOutcome::kRefused;
}

}  // namespace zolog
