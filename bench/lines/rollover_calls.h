#ifndef ZOERRLOG_BENCH_LINES_ROLLOVER_CALLS_H
#define ZOERRLOG_BENCH_LINES_ROLLOVER_CALLS_H

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include <bench/lines/run.h>

namespace bench {

using Times = std::vector<std::chrono::nanoseconds::rep>;  // of single calls

/// The value that `share` of the times, 0 to 1, do not exceed. Sorts them in part.
Times::value_type Percentile(Times& times, double share);

struct RolloverCalls {
    std::string subject;
    int backups;
    Times times;
};

/// Lets every subject that keeps `backups` old files roll over, in turns: first until it has as
/// many as it keeps, then `rollovers` times more. The times are those of the calls that did it.
std::vector<RolloverCalls> TimeRollovers(const Contenders& contenders, int backups, int rollovers,
                                         const WorkDirectory& directory);

}  // namespace bench

#endif
