#include <zolog/replay/replay_command.h>

#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

#include <login_logout/LoginLogoutMessages.h>
#include <zoerrlog/zoerrlog.h>

#include <zolog/replay/input_reader.h>
#include <zolog/replay/logs.h>
#include <zolog/replay/replay_options.h>
#include <zolog/replay/replay_run.h>
#include <zolog/replay/summary.h>

namespace zolog {

namespace {

int RunReplay(const ReplayOptions& options) {
    const Input input(options.files);
    Logs logs(options);
    if (theLogger()->GetMsgBundle(login_logout::kComponentId) == nullptr) {
        std::cerr << "zolog: the component library of Login_Logout was not found; "
                     "its messages go without their texts, and nothing is traced\n";
    }
    const ReplayResult result = Replay(input, options);
    const std::vector<WrittenFile> files = logs.Close();
    if (!options.quiet) {
        WriteSummary(std::cout, result, files);
        if (!std::cout.flush()) {
            std::cerr << "zolog: cannot write the summary to standard output\n";
        }
    }
    return result.tally.refused == 0 ? kExitSuccess : kExitRefused;
}

}  // namespace

void AddReplayCommand(CLI::App& app, CommandAction& action) {
    CLI::App* command =
        app.add_subcommand("replay", "Writes sshd logs to the error, the trace and the audit log.");
    auto options = std::make_shared<ReplayOptions>();
    AddReplayOptions(*command, *options);
    command->callback([options, &action] { action = [options] { return RunReplay(*options); }; });
}

}  // namespace zolog
