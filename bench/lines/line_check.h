#ifndef ZOERRLOG_BENCH_LINES_LINE_CHECK_H
#define ZOERRLOG_BENCH_LINES_LINE_CHECK_H

#include <cstdint>
#include <map>
#include <string>

#include <bench/lines/subject.h>

namespace bench {

/// What became of the lines that were logged.
struct Tally {
    std::uint64_t lines = 0;
    std::uint64_t lost = 0;  // refused lines are lost too
    std::uint64_t torn = 0;  // not whole, or more than were logged
};

/// Reads the file of a run of `calls` calls; a workload of questions must have left no line.
Tally CheckFile(const std::string& path, const Contender& contender, std::uint64_t calls);

/// Adds up the tallies of all runs.
class Ledger {
public:
    void Add(const Contender& contender, const Tally& tally);
    /// Says on standard error which subjects lost or tore lines; true when none did.
    bool Report() const;
    /// {"workload/subject":{"lines":N,"lost":N,"torn":N},...}
    void Write(const std::string& file) const;

private:
    std::map<std::string, Tally> tallies;
};

}  // namespace bench

#endif
