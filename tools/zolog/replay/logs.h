#ifndef ZOLOG_REPLAY_LOGS_H
#define ZOLOG_REPLAY_LOGS_H

#include <vector>

#include <zolog/replay/log_files.h>

namespace zolog {

struct ReplayOptions;

/// The error, trace and audit channels of the default logger, set up as the options say for as
/// long as the object lives.
class Logs {
public:
    /// Throws CommandError when a channel cannot be set up.
    explicit Logs(const ReplayOptions& options);
    Logs(const Logs&) = delete;
    Logs& operator=(const Logs&) = delete;

    /// Closes the outputs and gives the files of the error, the trace and the audit log, each after
    /// those of its backups that came into being since the construction, oldest first; none for
    /// the console.
    std::vector<WrittenFile> Close();

private:
    // A member closes what a constructor that then throws has opened.
    struct Channels {
        Channels() = default;
        ~Channels() { Disable(); }
        Channels(const Channels&) = delete;
        Channels& operator=(const Channels&) = delete;
        void Disable();
    };
    Channels m_channels;
    std::vector<LogFile> m_files;  // empty for the console
};

}  // namespace zolog

#endif
