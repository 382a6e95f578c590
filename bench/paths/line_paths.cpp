#include <bench/paths/line_paths.h>

#include <fstream>

#include <bench/paths/line_texts.h>
#include <zoerrlog/zoerrlog.h>

namespace bench {
namespace {

constexpr int kFileType = 1;

constexpr unsigned int kLoginRefused = 0x0700C001;  // takes three arguments

CZoLogOutput* File(const std::string& name, int mode, int maxSizeMB, int maxBackups) {
    return theLogger()->NewLogOutput(kFileType, name.c_str(), mode, maxSizeMB, maxBackups);
}

}  // namespace

bool SetUpErrorLog(const std::string& file, int mode, int maxSizeMB, int maxBackups) {
    return theLogger()->SetLogOutput(File(file, mode, maxSizeMB, maxBackups));
}

bool SetUpTrace(const std::string& file, int format) {
    const std::string config = file + ".conf";
    std::ofstream(config) << "version: 1.1\ncomponents: Login_Logout\n"
                             "data: Date PreciseTime Tid Function User IPAddr AuthStatus Message\n"
                             "User !="
                          << kUnwantedUser << '\n';
    return theLogger()->EnableTrace(File(file, CZoFileOutput::Overwrite, 0, 0), format, "|",
                                    config.c_str(), false, false, false);
}

bool SetUpAudit(const std::string& file) {
    return theLogger()->EnableAuditLogRollover(File(file, CZoFileOutput::Overwrite, 0, 0));
}

bool ErrorLine() {
    CZoErrLogMessage message;
    message.FormatLogProlog(kSourceFile, kSourceLine, 0);
    message.GetArgList() << kUser << kAddress << kPort;
    message.FormatMessageA(kLoginRefused);
    return theLogger()->LogErrMsg(message);
}

bool TraceLine() {
    CZoTraceData* line = nullptr;
    if (!theLogger()->ShouldTraceAlloc(kAuthentication, &line)) {
        return false;
    }
    const bool passed =
        line->SetFieldValue(kZoFieldFunction, kFunction) &&
        line->SetFieldValue(kZoFieldUser, kUser) && line->SetFieldValue(kZoFieldIPAddr, kAddress) &&
        line->SetFieldValue(kZoFieldAuthStatus, kStatus) &&
        line->SetFieldValue(kZoFieldMessage, line->FormatTraceMessage("attempt %d on port %s",
                                                                      kAttempt, kAttemptPort)) &&
        line->SetFieldValue(kZoFieldTid, 0) && line->SetFieldValue(kZoFieldPreciseTime, 0);
    const bool written = passed && line->Format() && line->Log();
    line->LeaveNoBody();
    return written;
}

bool AuditLine() {
    CZoErrLogMessage message;
    return message.FormatAuditMessage("login of %s from %s refused\n", kUser, kAddress) &&
           theLogger()->LogAuditMsg(message);
}

bool AskUnselected() {
    return !theLogger()->TraceEnabled(kLegacy);
}

bool AskSelected() {
    return theLogger()->TraceEnabled(kAuthentication);
}

bool GetRecord() {
    CZoTraceData* record = nullptr;
    return theLogger()->ShouldTraceAlloc(kAuthentication, &record);
}

}  // namespace bench
