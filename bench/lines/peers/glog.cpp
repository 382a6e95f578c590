// The library's own prefix is kept: "E20261116 14:56:38.123456 4711 Login.cpp:88] ". It has a finer
// time than the other libraries' lines, and neither the day of the week nor the process id.
#include <cstring>
#include <mutex>

#include <bench/lines/subject.h>
#include <bench/paths/line_texts.h>
#include <gflags/gflags.h>
#include <glog/logging.h>

namespace bench {
namespace {

constexpr int kHeadings = 4;
constexpr const char* kErrorBegin = "E######## ##:##:##.######";
constexpr const char* kTraceBegin = "I######## ##:##:##.######";
constexpr int kDefaultBufferSeconds = 30;

std::once_flag started;

/// Once a process: no output but the files that SetUp names.
void StartLibrary() {
    FLAGS_timestamp_in_logfile_name = false;
    FLAGS_log_utc_time = true;
    FLAGS_stderrthreshold = google::GLOG_FATAL;
    // The files are small and short-lived; telling the kernel to drop them every 3 MB is no part
    // of what a line costs. This flag is not declared in the header.
    Require(!gflags::SetCommandLineOption("drop_log_memory", "false").empty(), "a flag of glog");
    google::InitGoogleLogging("bench");
    for (const auto severity :
         {google::GLOG_INFO, google::GLOG_WARNING, google::GLOG_ERROR, google::GLOG_FATAL}) {
        google::SetLogDestination(severity, "");
        google::SetLogSymlink(severity, "");
    }
}

/// A line of `Severity` goes to the files of the lower ones too; those have no destination.
template <google::LogSeverity Severity>
class Glog : public Subject {
public:
    explicit Glog(bool flush) : flushEach(flush) {}

    void SetUp(const std::string& path) override {
        std::call_once(started, StartLibrary);
        // Severities up to logbuflevel are held back; an error is not, by default.
        FLAGS_logbuflevel = flushEach ? google::GLOG_INFO - 1 : Severity;
        FLAGS_logbufsecs = flushEach ? 0 : kDefaultBufferSeconds;
        google::SetLogDestination(Severity, path.c_str());
    }
    void TearDown() override { google::SetLogDestination(Severity, ""); }

private:
    bool flushEach;
};

class ErrorLine final : public Glog<google::GLOG_ERROR> {
public:
    using Glog::Glog;
    bool Log() override {
        google::LogMessage(kSourceFile, kSourceLine, google::GLOG_ERROR).stream()
            << '[' << kMessageKey << "] Failed password for " << kUser << " from " << kAddress
            << " port " << kPort;
        return true;
    }
};

class TraceLine final : public Glog<google::GLOG_INFO> {
public:
    using Glog::Glog;
    bool Log() override {
        if (std::strcmp(kUser, kUnwantedUser) != 0) {
            google::LogMessage(kSourceFile, kSourceLine, google::GLOG_INFO).stream()
                << '[' << kFunction << "][" << kUser << "][" << kAddress << "][" << kStatus
                << "][attempt " << kAttempt << " on port " << kAttemptPort << ']';
        }
        return true;
    }
};

template <typename Line>
void Add(Contenders& contenders, const char* workload, bool flushEach, const char* begin) {
    Contender& added = Add<Line>(contenders, workload, "glog", flushEach);
    added.headings = kHeadings;
    added.begin = begin;
}

}  // namespace

void AddGlog(Contenders& contenders) {
    Add<ErrorLine>(contenders, "error_line", true, kErrorBegin);
    Add<ErrorLine>(contenders, "error_line_buffered", false, kErrorBegin);
    Add<TraceLine>(contenders, "trace_line_bracketed", true, kTraceBegin);
}

}  // namespace bench
