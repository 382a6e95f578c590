#include <zolog/replay/error_log.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <regex>
#include <system_error>
#include <utility>

#include <zoerrlog/zoerrlog.h>
#include <zoi18n/zoi18n.h>
#include <zoxlate/zoxlate.h>

#include <zolog/command.h>
#include <zolog/platform/file_owner.h>
#include <zolog/replay/replay_options.h>

namespace fs = std::filesystem;

namespace zolog {

namespace {

// The logger's factories tell the kind of output by their arguments; these say it to the reader.
constexpr int kConsoleType = 0;
constexpr int kFileType = 1;

const char kLogName[] = "error.log";

// An output belongs to its creator until the logger has taken it.
struct OutputDeleter {
    void operator()(CZoLogOutput* output) const { theLogger()->DeleteLogOutput(output); }
};
using OutputOwner = std::unique_ptr<CZoLogOutput, OutputDeleter>;

bool Install(OutputOwner output) {
    if (output == nullptr || !theLogger()->SetLogOutput(output.get())) {
        return false;
    }
    static_cast<void>(output.release());
    return true;
}

void UseResources(const std::string& chosen) {
    if (!chosen.empty()) {
        if (!CZoXlate::SetResourceDirectory(chosen.c_str())) {
            throw CommandError("cannot use the resources '" + chosen + "': not a directory");
        }
        return;
    }
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const fs::path beside = program.parent_path().parent_path() / "share/zoerrlog/resources";
    if (!error) {
        // Where there is none, the library's own directory stays.
        static_cast<void>(CZoXlate::SetResourceDirectory(beside.c_str()));
    }
}

void UseLocale(const std::string& locale) {
    if (!locale.empty() && !ZoSetAdminLocale(locale.c_str())) {
        throw CommandError("cannot use the locale '" + locale + "': not a locale name");
    }
}

void MakeDirectory(const fs::path& directory) {
    std::error_code error;
    fs::create_directories(directory, error);
    if (error) {
        throw CommandError("cannot make the directory '" + directory.string() +
                           "': " + error.message());
    }
    if (!fs::is_directory(directory, error)) {
        throw CommandError("cannot write to '" + directory.string() + "': not a directory");
    }
}

// The logger says only that an output did not open; trying the file itself tells the reason.
std::string WhyNotOpened(const fs::path& path) {
    const FileOwner stream(std::fopen(path.c_str(), "ab"));
    if (stream == nullptr) {
        return std::generic_category().message(errno);
    }
    return "it cannot be rolled over";
}

// Backups sort by their date and then by their number within its second.
using BackupOrder = std::pair<std::string, unsigned long>;

bool IsBackup(const std::string& name, BackupOrder* order) {
    static const std::regex pattern(R"(error_(\d{8}_\d{6})(?:_(\d{1,9}))?\.log)");
    std::smatch match;
    if (!std::regex_match(name, match, pattern)) {
        return false;
    }
    *order = {match.str(1), match[2].matched ? std::stoul(match.str(2)) : 0};
    return true;
}

std::vector<std::pair<BackupOrder, fs::path>> BackupsIn(const fs::path& directory) {
    std::vector<std::pair<BackupOrder, fs::path>> backups;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        BackupOrder order;
        if (IsBackup(entry->path().filename().string(), &order)) {
            backups.emplace_back(std::move(order), entry->path());
        }
    }
    std::sort(backups.begin(), backups.end());
    return backups;
}

}  // namespace

ErrorLog::ErrorLog(const ReplayOptions& options) {
    UseResources(options.resources);
    UseLocale(options.locale);
    theLogger()->UseLocalTime(options.localTime);
    if (options.console) {
        OpenConsole();
    } else {
        OpenFile(options);
    }
}

ErrorLog::~ErrorLog() {
    theLogger()->DisableLog();
}

void ErrorLog::OpenConsole() {
    if (!Install(OutputOwner(theLogger()->NewLogOutput(kConsoleType)))) {
        throw CommandError("cannot open the console: there is no standard output");
    }
}

void ErrorLog::OpenFile(const ReplayOptions& options) {
    // The logger takes a backslash for a directory separator; the directory that is made here
    // must be the one that it means.
    std::string directory = options.outDirectory;
    std::replace(directory.begin(), directory.end(), '\\', '/');
    MakeDirectory(directory);

    m_path = fs::path(directory) / kLogName;
    for (const auto& [order, path] : BackupsIn(directory)) {
        m_earlierBackups.insert(path.filename().string());
    }
    OutputOwner output(theLogger()->NewLogOutput(kFileType, m_path.c_str(), options.mode,
                                                 options.maxSizeMB, options.backups));
    if (!Install(std::move(output))) {
        throw CommandError("cannot open '" + m_path.string() + "': " + WhyNotOpened(m_path));
    }
}

std::vector<WrittenFile> ErrorLog::Close() {
    theLogger()->DisableLog();
    if (m_path.empty()) {
        return {};
    }
    std::vector<WrittenFile> files;
    const auto add = [&files](const fs::path& path) {
        std::error_code error;
        const std::uintmax_t size = fs::file_size(path, error);
        if (!error) {
            files.push_back({path.string(), size});
        }
    };
    for (const auto& [order, path] : BackupsIn(m_path.parent_path())) {
        if (!m_earlierBackups.contains(path.filename().string())) {
            add(path);
        }
    }
    add(m_path);
    return files;
}

}  // namespace zolog
