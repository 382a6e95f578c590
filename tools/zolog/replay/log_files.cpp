#include <zolog/replay/log_files.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <regex>
#include <system_error>
#include <utility>

#include <zolog/command.h>
#include <zolog/platform/file_owner.h>

namespace fs = std::filesystem;

namespace zolog {

namespace {

const char kExtension[] = ".log";

// Backups sort by their date and then by their number within its second.
using BackupOrder = std::pair<std::string, unsigned long>;

bool IsBackup(const std::string& name, const std::string& stem, BackupOrder* order) {
    static const std::regex pattern(R"((.*)_(\d{8}_\d{6})(?:_(\d{1,9}))?\.log)");
    std::smatch match;
    if (!std::regex_match(name, match, pattern) || match.str(1) != stem) {
        return false;
    }
    *order = {match.str(2), match[3].matched ? std::stoul(match.str(3)) : 0};
    return true;
}

}  // namespace

LogFile::LogFile(const fs::path& directory, const std::string& stem)
    : m_path(directory / (stem + kExtension)) {
    const std::vector<fs::path> backups = Backups();
    m_earlierBackups.insert(backups.begin(), backups.end());
}

std::vector<fs::path> LogFile::Backups() const {
    std::vector<std::pair<BackupOrder, fs::path>> found;
    std::error_code error;
    for (fs::directory_iterator entry(m_path.parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
        BackupOrder order;
        if (IsBackup(entry->path().filename().string(), m_path.stem().string(), &order)) {
            found.emplace_back(std::move(order), entry->path());
        }
    }
    std::sort(found.begin(), found.end());
    std::vector<fs::path> backups;
    backups.reserve(found.size());
    for (auto& [order, path] : found) {
        backups.push_back(std::move(path));
    }
    return backups;
}

std::vector<WrittenFile> LogFile::Written() const {
    std::vector<WrittenFile> files;
    const auto add = [&files](const fs::path& path) {
        std::error_code error;
        const std::uintmax_t size = fs::file_size(path, error);
        if (!error) {
            files.push_back({path.string(), size});
        }
    };
    for (const fs::path& backup : Backups()) {
        if (!m_earlierBackups.contains(backup)) {
            add(backup);
        }
    }
    add(m_path);
    return files;
}

// The logger says only that an output did not open; trying the file itself tells the reason.
std::string LogFile::WhyNotOpened() const {
    const FileOwner stream(std::fopen(m_path.c_str(), "ab"));
    if (stream == nullptr) {
        return std::generic_category().message(errno);
    }
    return "it cannot be rolled over";
}

fs::path MakeLogDirectory(std::string name) {
    // The logger takes a backslash for a directory separator; the directory that is made here
    // must be the one that it means.
    std::replace(name.begin(), name.end(), '\\', '/');
    std::error_code error;
    fs::create_directories(name, error);
    if (error) {
        throw CommandError("cannot make the directory '" + name + "': " + error.message());
    }
    if (!fs::is_directory(name, error)) {
        throw CommandError("cannot write to '" + name + "': not a directory");
    }
    return name;
}

}  // namespace zolog
