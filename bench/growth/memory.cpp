// How much memory threads that trace take, and named loggers.
#include <vector>

#include "figures.h"
#include "growth.h"
#include "host_process.h"

namespace {

constexpr double kBytesPerKilobyte = 1024;

struct MemoryCase {
    const char* counted;  // what there is `count` of
    const char* each;
    int count;
    // Two hosts that differ in nothing but what is measured.
    std::vector<std::string> arguments;
    std::vector<std::string> baseline;
    std::vector<double> residentKB;
    std::vector<double> heapKB;
};

MemoryCase Threads(int count) {
    const std::string number = std::to_string(count);
    return {"tracing_threads",
            "per_thread_kb",
            count,
            {"tracing-threads", number},
            {"idle-threads", number},
            {},
            {}};
}

MemoryCase Loggers(int count) {
    return {"named_loggers",
            "per_logger_kb",
            count,
            {"named-loggers", std::to_string(count)},
            {"named-loggers", "0"},
            {},
            {}};
}

void MeasureOnce(MemoryCase& one, const GrowthOptions& options) {
    const std::vector<double> with = RunHost(kHostAlone, options.directory, one.arguments);
    const std::vector<double> without = RunHost(kHostAlone, options.directory, one.baseline);
    Require(with.size() == 2 && without.size() == 2, "the host does not give two figures");
    one.residentKB.push_back(with[0] - without[0]);
    one.heapKB.push_back((with[1] - without[1]) / kBytesPerKilobyte);
}

}  // namespace

std::string MeasureMemory(const GrowthOptions& options) {
    std::vector<MemoryCase> cases = {Threads(1), Threads(100), Threads(1000), Loggers(1),
                                     Loggers(1000)};
    for (int round = 0; round < options.memoryRuns; ++round) {
        for (MemoryCase& one : cases) {
            MeasureOnce(one, options);
        }
    }
    std::vector<JsonRecord> records;
    for (const MemoryCase& one : cases) {
        const double residentKB = Median(one.residentKB);
        records.push_back(JsonRecord()
                              .Add(one.counted, one.count)
                              .Add("resident_kb", residentKB)
                              .Add("heap_kb", Median(one.heapKB))
                              .Add(one.each, residentKB / one.count));
    }
    return JsonArray(records);
}
