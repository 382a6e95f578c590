// growth_host RESULT-FILE WHAT [COUNT]
// The process that growth measures. It writes numbers into RESULT-FILE:
//   start-up           component libraries found, and the times before and after initialisation
//   tracing-threads N  resident kilobytes and bytes of heap while N threads live that have traced
//   idle-threads N     the same with threads that have not
//   named-loggers N    the same with N loggers
#include <malloc.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <latch>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <zoerrlog/zoerrlog.h>

#include "figures.h"

namespace {

constexpr unsigned int kLog = 0x01000000;  // the component that is always there
constexpr unsigned int kSubComponentBits = 0x00FF0000;
constexpr int kFileType = 1;
constexpr int kBracketed = 0;

std::int64_t Nanoseconds() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

int CountComponentLibraries() {
    int count = 0;
    const ZoTraceComponentInfo* infos = nullptr;
    Require(theLogger()->GetTraceComponents(&count, &infos), "the table of components");
    int found = 0;
    for (int i = 0; i < count; ++i) {
        found += (infos[i].id & kSubComponentBits) == 0 && infos[i].id != kLog ? 1 : 0;
    }
    return found;
}

long ResidentKilobytes() {
    // Not statm: it lags behind, by up to a batch of pages a thread.
    std::ifstream rollup("/proc/self/smaps_rollup");
    long kilobytes = 0;
    for (std::string word; rollup >> word;) {
        if (word == "Rss:" && rollup >> kilobytes) {
            return kilobytes;
        }
    }
    throw std::runtime_error("smaps_rollup tells no resident memory");
}

void WriteMemory(std::ostream& result) {
    const struct mallinfo2 heap = mallinfo2();
    result << ResidentKilobytes() << ' ' << heap.uordblks + heap.hblkhd << '\n';
}

void SetUpTrace(const std::string& base) {
    const std::string config = base + ".conf";
    std::ofstream(config) << "version: 1.1\ncomponents: Log\ndata: Date PreciseTime Tid Message\n";
    const std::string log = base + ".log";
    Require(theLogger()->EnableTrace(
                theLogger()->NewLogOutput(kFileType, log.c_str(), CZoFileOutput::Overwrite, 0, 0),
                kBracketed, "", config.c_str(), false, false, false),
            "the trace log");
}

bool Trace() {
    CZoTraceData* line = nullptr;
    if (!theLogger()->ShouldTraceAlloc(kLog, &line)) {
        return false;
    }
    const bool written =
        line->SetFieldValue(kZoFieldMessage, line->FormatTraceMessage("attempt %d", 1)) &&
        line->SetFieldValue(kZoFieldTid, 0) && line->SetFieldValue(kZoFieldPreciseTime, 0) &&
        line->Format() && line->Log();
    line->LeaveNoBody();
    return written;
}

void MeasureThreads(std::ostream& result, int count, bool trace) {
    std::latch ready(count);
    std::latch measured(1);
    std::atomic<int> failed = 0;
    std::vector<std::jthread> threads;
    threads.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        threads.emplace_back([&] {
            if (trace && !Trace()) {
                ++failed;
            }
            ready.count_down();
            measured.wait();
        });
    }
    ready.wait();
    WriteMemory(result);
    measured.count_down();
    Require(failed == 0, "a trace line");
}

void MeasureLoggers(std::ostream& result, int count) {
    theLogger();
    for (int i = 0; i < count; ++i) {
        Require(getMyLogger(("logger-" + std::to_string(i)).c_str()) != nullptr, "a logger");
    }
    WriteMemory(result);
}

void Measure(const std::string& file, const std::string& what, int count) {
    std::ofstream result(file);
    if (what == "start-up") {
        const std::int64_t before = Nanoseconds();
        theLogger();
        const std::int64_t after = Nanoseconds();
        result << CountComponentLibraries() << ' ' << before << ' ' << after << '\n';
    } else if (what == "named-loggers") {
        MeasureLoggers(result, count);
    } else {
        SetUpTrace(file);
        MeasureThreads(result, count, what == "tracing-threads");
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        Require(argc == 3 || argc == 4, "give a file, what to measure, and how many");
        Measure(argv[1], argv[2], argc == 4 ? std::stoi(argv[3]) : 0);
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "growth_host: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
