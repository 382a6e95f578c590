#ifndef ZOLOG_REPLAY_SUMMARY_H
#define ZOLOG_REPLAY_SUMMARY_H

#include <iosfwd>
#include <vector>

#include <zolog/replay/log_files.h>
#include <zolog/replay/replay_run.h>

namespace zolog {

/// Writes what a run did, one "name: value" a line.
void WriteSummary(std::ostream& stream, const ReplayResult& result,
                  const std::vector<WrittenFile>& files);

}  // namespace zolog

#endif
