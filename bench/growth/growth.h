#ifndef ZOERRLOG_BENCH_GROWTH_GROWTH_H
#define ZOERRLOG_BENCH_GROWTH_GROWTH_H

#include <filesystem>
#include <string>

/// What the command line chooses.
struct GrowthOptions {
    std::filesystem::path directory;  ///< everything that is written goes into it
    int foreignFiles = 100000;        ///< in the large directory of the rollovers
    int rollovers = 10;               ///< of each case
    int startUps = 20;                ///< of each case
    int memoryRuns = 5;               ///< processes of each case
};

// Each measures its subject and returns a JSON array of records. Throws std::runtime_error, with a
// text for people, when something does not work as it must.

std::string MeasureRollover(const GrowthOptions& options);
std::string MeasureStartUp(const GrowthOptions& options);
std::string MeasureMemory(const GrowthOptions& options);

#endif
