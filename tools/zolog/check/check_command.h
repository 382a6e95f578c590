#ifndef ZOLOG_CHECK_CHECK_COMMAND_H
#define ZOLOG_CHECK_CHECK_COMMAND_H

#include <zolog/command.h>

namespace CLI {
class App;
}

namespace zolog {

/// Adds "check" to the commands of `app`: it says what a trace configuration file selects and warns
/// of what in it is skipped (exit status kExitRefused), or lists what files can name. When the
/// command line chooses it, its action is put into `action`, which must be there while `app`
/// parses.
void AddCheckCommand(CLI::App& app, CommandAction& action);

}  // namespace zolog

#endif
