#ifndef ZOLOG_REPLAY_REPLAY_OPTIONS_H
#define ZOLOG_REPLAY_REPLAY_OPTIONS_H

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zolog {

/// What the command line of `zolog replay` says.
struct ReplayOptions {
    ReplayOptions();

    std::vector<std::string> files;
    std::string outDirectory = "zolog-out";
    int threads;  ///< the cores of the machine by default
    int repeat = 1;
    int mode = 4;
    int maxSizeMB = 100;
    int backups = 10;
    std::string traceConfig;      ///< empty: beside the program
    int format = 0;               ///< of a trace line
    std::string separator = "|";  ///< between the fields of format 2
    std::string locale;           ///< empty: the library's own
    std::string resources;        ///< empty: beside the program, or else the library's own
    bool localTime = false;
    bool console = false;
    bool quiet = false;
};

/// Declares the options on `command`, which fills `options` when it parses the command line and
/// so must not outlive it.
void AddReplayOptions(CLI::App& command, ReplayOptions& options);

}  // namespace zolog

#endif
