#include <zolog/replay/replay_options.h>

#include <algorithm>
#include <limits>
#include <thread>

#include <CLI/CLI.hpp>

namespace zolog {

namespace {

constexpr int kMaxThreads = 1024;
constexpr int kMaxMode = 4;
constexpr int kMaxFormat = 3;
// The file output keeps its limit in bytes in 32 bits: one megabyte more would count as none.
constexpr int kMaxSizeMB = 4095;
constexpr int kNoUpperLimit = std::numeric_limits<int>::max();

}  // namespace

ReplayOptions::ReplayOptions()
    : threads(std::clamp(static_cast<int>(std::thread::hardware_concurrency()), 1, kMaxThreads)) {
}

void AddReplayOptions(CLI::App& command, ReplayOptions& options) {
    const CLI::Validator notEmpty(
        [](const std::string& value) {
            return value.empty() ? std::string("must not be empty") : std::string();
        },
        "");

    command.add_option("FILE", options.files, "sshd logs to read; - is standard input")->required();
    command.add_option("--out", options.outDirectory, "directory of the logs; made if missing")
        ->type_name("DIR")
        ->check(notEmpty)
        ->capture_default_str();
    command.add_option("--threads", options.threads, "threads that write")
        ->type_name("N")
        ->check(CLI::Range(1, kMaxThreads))
        ->capture_default_str();
    command.add_option("--repeat", options.repeat, "replays the whole input K times")
        ->type_name("K")
        ->check(CLI::Range(1, kNoUpperLimit))
        ->capture_default_str();
    command
        .add_option("--mode", options.mode,
                    "0 overwrites each log, 1 appends to it, 2 rolls it over at the start, "
                    "3 at the size limit, 4 at both")
        ->check(CLI::Range(0, kMaxMode))
        ->type_name("0..4")
        ->capture_default_str();
    command.add_option("--max-size", options.maxSizeMB, "size limit of modes 3 and 4")
        ->check(CLI::Range(0, kMaxSizeMB))
        ->type_name("MB")
        ->capture_default_str();
    command.add_option("--backups", options.backups, "backups to keep of each log; 0 keeps all")
        ->check(CLI::Range(0, kNoUpperLimit))
        ->type_name("N")
        ->capture_default_str();
    command.add_option("--trace-config", options.traceConfig, "chooses what is traced")
        ->type_name("FILE")
        ->check(notEmpty);
    command
        .add_option("--format", options.format,
                    "trace lines are 0 bracketed, 1 in columns, 2 delimited, 3 XML")
        ->check(CLI::Range(0, kMaxFormat))
        ->type_name("0..3")
        ->capture_default_str();
    command.add_option("--separator", options.separator, "between the fields of format 2")
        ->type_name("TEXT")
        ->capture_default_str();
    command.add_option("--locale", options.locale, "locale of the message texts")
        ->type_name("NAME")
        ->check(notEmpty);
    command.add_option("--resources", options.resources, "directory of the message bundles")
        ->type_name("DIR")
        ->check(notEmpty);
    command.add_flag("--local-time", options.localTime, "dates in local time, not UTC");
    command.add_flag("--console", options.console, "writes to the console, not to files");
    command.add_flag("--quiet", options.quiet, "no progress bar and no summary");
}

}  // namespace zolog
