// instruction_paths DIRECTORY RESOURCE-DIRECTORY [PATH]
// Walks one path of a line, or all of them, as often as kRepetitions says, in CountedRun: what that
// function takes is what scripts/instructions counts. The logs go into DIRECTORY. Without PATH it
// only names the paths.
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <zoerrlog/zoerrlog.h>
#include <zoxlate/zoxlate.h>

namespace {

constexpr int kRepetitions = 1000;
constexpr int kWarmUps = 10;
constexpr int kFileType = 1;

constexpr unsigned int kAuthentication = 0x07010000;  // selected
constexpr unsigned int kLegacy = 0x01010000;          // not selected
constexpr unsigned int kLoginRefused = 0x0700C001;    // takes three arguments

void Require(bool holds, const std::string& what) {
    if (!holds) {
        std::cerr << "instruction_paths: does not work: " << what << '\n';
        std::exit(EXIT_FAILURE);
    }
}

CZoLogOutput* File(const std::string& name, int mode, int maxSizeMB) {
    return theLogger()->NewLogOutput(kFileType, name.c_str(), mode, maxSizeMB, 0);
}

void SetUpErrorLog(const std::string& directory, int mode) {
    constexpr int kMegabytes = 100;
    Require(theLogger()->SetLogOutput(File(directory + "/error.log", mode, kMegabytes)),
            "the error log");
}

void SetUpTrace(const std::string& directory, int format) {
    const std::string config = directory + "/trace.conf";
    std::ofstream(config) << "version: 1.1\ncomponents: Login_Logout\n"
                             "data: Date PreciseTime Tid Function User IPAddr AuthStatus Message\n"
                             "User !=nobody\n";
    Require(theLogger()->EnableTrace(File(directory + "/trace.log", CZoFileOutput::Overwrite, 0),
                                     format, "|", config.c_str(), false, false, false),
            "the trace log");
}

void SetUpAudit(const std::string& directory) {
    Require(theLogger()->EnableAuditLogRollover(
                File(directory + "/audit.log", CZoFileOutput::Overwrite, 0)),
            "the audit log");
}

bool ErrorLine() {
    CZoErrLogMessage message;
    message.FormatLogProlog("Login.cpp", 88, 0);
    message.GetArgList() << "webmaster"
                         << "192.0.2.17"
                         << "38926";
    message.FormatMessageA(kLoginRefused);
    return theLogger()->LogErrMsg(message);
}

bool TraceLine() {
    CZoTraceData* line = nullptr;
    if (!theLogger()->ShouldTraceAlloc(kAuthentication, &line)) {
        return false;
    }
    const bool passed =
        line->SetFieldValue(kZoFieldFunction, "CheckPassword") &&
        line->SetFieldValue(kZoFieldUser, "webmaster") &&
        line->SetFieldValue(kZoFieldIPAddr, "192.0.2.17") &&
        line->SetFieldValue(kZoFieldAuthStatus, "failed") &&
        line->SetFieldValue(kZoFieldMessage,
                            line->FormatTraceMessage("attempt %d on port %s", 3, "22")) &&
        line->SetFieldValue(kZoFieldTid, 0) && line->SetFieldValue(kZoFieldPreciseTime, 0);
    const bool written = passed && line->Format() && line->Log();
    line->LeaveNoBody();
    return written;
}

bool AuditLine() {
    CZoErrLogMessage message;
    return message.FormatAuditMessage("login of %s from %s refused\n", "webmaster", "192.0.2.17") &&
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

struct Path {
    std::string name;
    std::function<void(const std::string& directory)> setUp;
    bool (*walk)();
};

std::vector<Path> Paths() {
    const auto trace = [](int format) {
        return [format](const std::string& directory) { SetUpTrace(directory, format); };
    };
    const auto error = [](int mode) {
        return [mode](const std::string& directory) { SetUpErrorLog(directory, mode); };
    };
    return {{"error-line-mode-1", error(CZoFileOutput::Append), ErrorLine},
            {"error-line-mode-3", error(CZoFileOutput::RolloverBySize), ErrorLine},
            {"trace-line-bracketed", trace(0), TraceLine},
            {"trace-line-columns", trace(1), TraceLine},
            {"trace-line-delimited", trace(2), TraceLine},
            {"trace-line-xml", trace(3), TraceLine},
            {"audit-line", SetUpAudit, AuditLine},
            {"question-off", [](const std::string&) {}, AskUnselected},
            {"question-not-selected", trace(0), AskUnselected},
            {"question-selected", trace(0), AskSelected},
            {"record-of-a-thread", trace(0), GetRecord}};
}

}  // namespace

// Outside the unnamed namespace, and kept whole: callgrind finds it by its name.
__attribute__((noinline)) bool CountedRun(bool (*walk)(), int repetitions) {
    bool worked = true;
    for (int i = 0; i < repetitions; ++i) {
        worked = walk() && worked;
    }
    return worked;
}

int main(int argc, char** argv) {
    const std::string chosen = argc == 4 ? argv[3] : "";
    Require(argc == 3 || argc == 4, "give a directory, that of the resources, and a path");
    Require(CZoXlate::SetResourceDirectory(argv[2]), "the directory of the resources");
    for (const Path& path : Paths()) {
        if (chosen.empty()) {
            std::cout << path.name << '\n';
        } else if (path.name == chosen) {
            path.setUp(argv[1]);
            for (int i = 0; i < kWarmUps; ++i) {
                Require(path.walk(), path.name);
            }
            Require(CountedRun(path.walk, kRepetitions), path.name);
            return EXIT_SUCCESS;
        }
    }
    Require(chosen.empty(), "there is no path " + chosen);
    return EXIT_SUCCESS;
}
