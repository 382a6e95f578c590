#ifndef ZOLOG_REPLAY_REPLAY_COMMAND_H
#define ZOLOG_REPLAY_REPLAY_COMMAND_H

#include <zolog/command.h>

namespace CLI {
class App;
}

namespace zolog {

/// Adds "replay" to the commands of `app`: it reads sshd logs and writes them to the
/// error, the trace and the audit log from many threads. When the command line chooses it, its
/// action is put into `action`, which must be there while `app` parses.
void AddReplayCommand(CLI::App& app, CommandAction& action);

}  // namespace zolog

#endif
