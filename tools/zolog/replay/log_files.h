#ifndef ZOLOG_REPLAY_LOG_FILES_H
#define ZOLOG_REPLAY_LOG_FILES_H

#include <cstdint>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace zolog {

struct WrittenFile {
    std::string path;
    std::uintmax_t size;
};

/// A log file and the backups that rolling it over makes beside it.
class LogFile {
public:
    /// "STEM.log" in `directory`, whose backups of earlier runs are noted.
    LogFile(const std::filesystem::path& directory, const std::string& stem);

    const std::filesystem::path& Path() const { return m_path; }
    /// The file and the backups that came into being since the construction, oldest backup first.
    std::vector<WrittenFile> Written() const;
    /// Why an output could not open the file, as a part of a sentence.
    std::string WhyNotOpened() const;

private:
    std::vector<std::filesystem::path> Backups() const;

    std::filesystem::path m_path;
    std::set<std::filesystem::path> m_earlierBackups;
};

/// The directory that the logger means by `name`, made if it is missing; throws CommandError when
/// it cannot be made.
std::filesystem::path MakeLogDirectory(std::string name);

}  // namespace zolog

#endif
