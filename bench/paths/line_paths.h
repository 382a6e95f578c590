#ifndef ZOERRLOG_BENCH_PATHS_LINE_PATHS_H
#define ZOERRLOG_BENCH_PATHS_LINE_PATHS_H

#include <string>

/// The paths of a line through the library's public headers. Each set-up installs a channel of the
/// default logger that writes to `file`; each path then writes one line, or asks one question, and
/// is true when the library did what the path is about.
namespace bench {

constexpr unsigned int kAuthentication = 0x07010000;  // a component that the trace selects
constexpr unsigned int kLegacy = 0x01010000;          // one that it does not select

bool SetUpErrorLog(const std::string& file, int mode, int maxSizeMB, int maxBackups);
/// Eight fields and one filter; the configuration is written to `file` with ".conf" added.
bool SetUpTrace(const std::string& file, int format);
bool SetUpAudit(const std::string& file);

bool ErrorLine();
bool TraceLine();
bool AuditLine();
bool AskUnselected();
bool AskSelected();
bool GetRecord();

}  // namespace bench

#endif
