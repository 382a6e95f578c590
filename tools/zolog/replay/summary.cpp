#include <zolog/replay/summary.h>

#include <iomanip>
#include <ostream>

namespace zolog {

void WriteSummary(std::ostream& stream, const ReplayResult& result,
                  const std::vector<WrittenFile>& files) {
    const Tally& tally = result.tally;
    stream << "lines read: " << tally.linesRead << '\n'
           << "ERROR: " << tally.messages[kError] << '\n'
           << "WARNING: " << tally.messages[kWarning] << '\n'
           << "INFO: " << tally.messages[kInformation] << '\n'
           << "accepted: " << tally.accepted << '\n'
           << "offered: " << tally.offered << '\n'
           << "filtered out: " << tally.filteredOut << '\n'
           << "traced: " << tally.traced << '\n'
           << "audited: " << tally.audited << '\n'
           << "refused: " << tally.refused << '\n';
    for (const WrittenFile& file : files) {
        stream << "file: " << file.path << " (" << file.size << " bytes)\n";
    }
    const double seconds = result.seconds.count();
    const double rate = seconds > 0 ? static_cast<double>(tally.linesRead) / seconds : 0;
    stream << std::fixed << std::setprecision(3) << "seconds: " << seconds << '\n'
           << std::setprecision(0) << "lines per second: " << rate << '\n';
}

}  // namespace zolog
