// How long a process takes from its start until its logger can be used.
#include <vector>

#include "figures.h"
#include "growth.h"
#include "host_process.h"

namespace {

constexpr int kLibraries = 26;

struct StartUpCase {
    const char* tree;
    int libraries;
    std::vector<double> total;
    std::vector<double> initialisation;
};

void MeasureOnce(StartUpCase& one, const GrowthOptions& options, bool counts) {
    constexpr double kNanosecondsPerMicrosecond = 1000;
    // The host reads the same clock: that of the system since it was started.
    const auto start = std::chrono::steady_clock::now().time_since_epoch();
    const std::vector<double> figures = RunHost(one.tree, options.directory, {"start-up"});
    Require(figures.size() == 3, "the host does not give three figures");
    Require(figures[0] == one.libraries,
            "the host found " + std::to_string(static_cast<int>(figures[0])) +
                " component libraries instead of " + std::to_string(one.libraries));
    if (counts) {
        one.initialisation.push_back((figures[2] - figures[1]) / kNanosecondsPerMicrosecond);
        one.total.push_back(figures[2] / kNanosecondsPerMicrosecond - Microseconds(start));
    }
}

}  // namespace

std::string MeasureStartUp(const GrowthOptions& options) {
    StartUpCase cases[] = {{kHostAlone, 0, {}, {}}, {kHostWithComponents, kLibraries, {}, {}}};
    for (int round = 0; round <= options.startUps; ++round) {
        for (StartUpCase& one : cases) {
            MeasureOnce(one, options, round > 0);
        }
    }
    std::vector<JsonRecord> records;
    for (const StartUpCase& one : cases) {
        records.push_back(JsonRecord()
                              .Add("component_libraries", one.libraries)
                              .Add("start_ups", static_cast<int>(one.total.size()))
                              .Add("median_us", Median(one.total))
                              .Add("worst_us", Worst(one.total))
                              .Add("initialisation_us", Median(one.initialisation))
                              .Add("worst_initialisation_us", Worst(one.initialisation)));
    }
    return JsonArray(records);
}
