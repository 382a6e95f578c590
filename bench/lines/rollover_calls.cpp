#include <bench/lines/rollover_calls.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;

/// Logs until a call has left the file smaller than before; what that call took.
Times::value_type TimeNextRollover(Run& run) {
    std::uintmax_t size = 0;
    while (true) {
        const auto begin = Clock::now();
        run.Log();
        const auto end = Clock::now();
        const std::uintmax_t before = size;
        size = std::filesystem::file_size(run.File());
        if (size < before) {
            return std::chrono::nanoseconds(end - begin).count();
        }
        Require(size < 2 * kBytesPerMB * kRolloverLimitMB, "rolling over " + run.File());
    }
}

}  // namespace

Times::value_type Percentile(Times& times, double share) {
    Require(!times.empty(), "a percentile of nothing");
    const auto rank =
        static_cast<std::size_t>(std::ceil(share * static_cast<double>(times.size())));
    const auto place =
        times.begin() + static_cast<std::ptrdiff_t>(std::max<std::size_t>(rank, 1)) - 1;
    std::nth_element(times.begin(), place, times.end());
    return *place;
}

std::vector<RolloverCalls> TimeRollovers(const Contenders& contenders, int backups, int rollovers,
                                         const WorkDirectory& directory) {
    std::vector<RolloverCalls> results;
    std::vector<std::unique_ptr<Run>> runs;
    for (const Contender& contender : contenders) {
        if (contender.workload == RolloverWorkload(backups)) {
            runs.push_back(std::make_unique<Run>(contender, directory));
            results.push_back({contender.name, backups, {}});
        }
    }
    for (int turn = -backups; turn < rollovers; ++turn) {
        for (std::size_t i = 0; i < runs.size(); ++i) {
            const auto time = TimeNextRollover(*runs[i]);
            if (turn >= 0) {
                results[i].times.push_back(time);
            }
        }
    }
    return results;
}

}  // namespace bench
