// instruction_paths DIRECTORY RESOURCE-DIRECTORY [PATH]
// Walks one path of a line, or all of them, as often as kRepetitions says, in CountedRun: what that
// function takes is what scripts/instructions counts. The logs go into DIRECTORY. Without PATH it
// only names the paths.
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

#include <bench/paths/line_paths.h>
#include <zoerrlog/zoerrlog.h>
#include <zoxlate/zoxlate.h>

namespace {

constexpr int kRepetitions = 1000;
constexpr int kWarmUps = 10;

void Require(bool holds, const std::string& what) {
    if (!holds) {
        std::cerr << "instruction_paths: does not work: " << what << '\n';
        std::exit(EXIT_FAILURE);
    }
}

void SetUpErrorLog(const std::string& directory, int mode) {
    constexpr int kMegabytes = 100;
    constexpr int kAllBackups = 0;
    Require(bench::SetUpErrorLog(directory + "/error.log", mode, kMegabytes, kAllBackups),
            "the error log");
}

void SetUpTrace(const std::string& directory, int format) {
    Require(bench::SetUpTrace(directory + "/trace.log", format), "the trace log");
}

void SetUpAudit(const std::string& directory) {
    Require(bench::SetUpAudit(directory + "/audit.log"), "the audit log");
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
    return {{"error-line-mode-1", error(CZoFileOutput::Append), bench::ErrorLine},
            {"error-line-mode-3", error(CZoFileOutput::RolloverBySize), bench::ErrorLine},
            {"trace-line-bracketed", trace(0), bench::TraceLine},
            {"trace-line-columns", trace(1), bench::TraceLine},
            {"trace-line-delimited", trace(2), bench::TraceLine},
            {"trace-line-xml", trace(3), bench::TraceLine},
            {"audit-line", SetUpAudit, bench::AuditLine},
            {"question-off", [](const std::string&) {}, bench::AskUnselected},
            {"question-not-selected", trace(0), bench::AskUnselected},
            {"question-selected", trace(0), bench::AskSelected},
            {"record-of-a-thread", trace(0), bench::GetRecord}};
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
