#include <zolog/replay/trace_line.h>

#include <string>
#include <string_view>

#include <login_logout/LoginLogoutMessages.h>
#include <zoerrlog/zoerrlog.h>

#include <zolog/replay/input_reader.h>
#include <zolog/replay/sshd_fields.h>

namespace zolog {

namespace {

// Numbers of the data fields that an sshd line can fill.
enum Field : unsigned int {
    kMessage = 0,
    kSrcFile = 1,
    kPid = 2,
    kTid = 3,
    kDate = 4,
    kTime = 5,
    kPreciseTime = 6,
    kFunction = 7,
    kUser = 9,
    kIPAddr = 26,
    kIPPort = 27,
    kAuthStatus = 28
};

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
bool IsWanted(const CZoTraceData& record, Field field) {
    return record.FieldTraced(field) || record.FieldFiltered(field);
}

bool SetText(CZoTraceData& record, Field field, std::string_view text) {
    return !IsWanted(record, field) || record.SetFieldValue(field, std::string(text).c_str());
}

bool SetMessage(CZoTraceData& record, std::string_view text) {
    return !IsWanted(record, kMessage) ||
           record.SetFieldValue(kMessage,
                                record.FormatTraceMessage("%s", std::string(text).c_str()));
}

bool SetSource(CZoTraceData& record, const InputLine& line) {
    return !IsWanted(record, kSrcFile) ||
           SetText(record, kSrcFile, line.fileName + (":" + std::to_string(line.number)));
}

// The record takes these from the process and the clock, whatever the number.
bool SetProcessAndTime(CZoTraceData& record) {
    for (const Field field : {kPid, kTid, kDate, kTime, kPreciseTime}) {
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
    return SetText(record, kFunction, fields.function) && SetText(record, kUser, fields.user) &&
           SetText(record, kIPAddr, fields.address) && SetText(record, kIPPort, fields.port) &&
           SetText(record, kAuthStatus, fields.authStatus) && SetMessage(record, fields.message) &&
           SetSource(record, line) && SetProcessAndTime(record);
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
