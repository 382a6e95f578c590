#ifndef ZOLOG_REPLAY_ERROR_LOG_H
#define ZOLOG_REPLAY_ERROR_LOG_H

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace zolog {

struct ReplayOptions;

struct WrittenFile {
    std::string path;
    std::uintmax_t size;
};

/// The error channel of the default logger, set up as the options say for as long as the object
/// lives.
class ErrorLog {
public:
    /// Throws CommandError when the channel cannot be set up.
    explicit ErrorLog(const ReplayOptions& options);
    ~ErrorLog();
    ErrorLog(const ErrorLog&) = delete;
    ErrorLog& operator=(const ErrorLog&) = delete;

    /// Closes the output and gives the log file and the backups that came into being since the
    /// construction, oldest backup first; none for the console.
    std::vector<WrittenFile> Close();

private:
    void OpenConsole();
    void OpenFile(const ReplayOptions& options);

    std::filesystem::path m_path;  // empty for the console
    std::set<std::string> m_earlierBackups;
};

}  // namespace zolog

#endif
