#include <exception>
#include <iostream>
#include <new>

#include <CLI/CLI.hpp>

#include <zolog/check/check_command.h>
#include <zolog/command.h>
#include <zolog/replay/replay_command.h>

namespace {

int Run(int argc, char** argv) {
    CLI::App app("Works with the error, trace and audit logs of zoerrlog.", "zolog");
    app.set_version_flag("--version", "zolog " ZOLOG_VERSION);
    zolog::CommandAction action;
    zolog::AddReplayCommand(app, action);
    zolog::AddCheckCommand(app, action);

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? zolog::kExitSuccess : zolog::kExitUnusable;
    }
    if (!action) {
        std::cerr << app.help();
        return zolog::kExitUnusable;
    }
    return action();
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(argc, argv);
    } catch (const zolog::CommandError& error) {
        std::cerr << "zolog: " << error.what() << '\n';
    } catch (const std::bad_alloc&) {
        std::cerr << "zolog: out of memory\n";
    } catch (const std::exception& error) {
        std::cerr << "zolog: unexpected failure: " << error.what() << '\n';
    }
    return zolog::kExitUnusable;
}
