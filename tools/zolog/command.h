#ifndef ZOLOG_COMMAND_H
#define ZOLOG_COMMAND_H

#include <functional>
#include <stdexcept>

namespace zolog {

/// Exit statuses of every command.
enum ExitStatus : int {
    kExitSuccess = 0,
    kExitRefused = 1,  ///< the command ran, but not all that it was to do was accepted
    kExitUnusable = 2  ///< bad usage, unreadable input, or an output that cannot be used
};

/// What the chosen command does once the whole command line is known; gives the exit status.
using CommandAction = std::function<int()>;

/// Ends a command with kExitUnusable; the text is one sentence for the user, which names the
/// file or option and the reason.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

}  // namespace zolog

#endif
