// How long the one call takes that rolls over: a line that reaches the size limit.
#include <dirent.h>
#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <fstream>
#include <iomanip>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <zoerrlog/zoerrlog.h>

#include "figures.h"
#include "growth.h"

namespace {

using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;

constexpr int kFewForeignFiles = 10;
constexpr int kBackups[] = {0, 1, 1000};
constexpr int kLimitMB = 1;
constexpr std::uintmax_t kLimit = std::uintmax_t{kLimitMB} << 20;
constexpr const char* kLine = "a line that reaches the limit\n";
constexpr const char* kBackupStart = "rollover_";

void CreateEmpty(const fs::path& file) {
    Require(static_cast<bool>(std::ofstream(file)), file.string() + " cannot be made");
}

// The name of a backup that was made long ago, each a second after the one before.
std::string BackupName(int index) {
    std::ostringstream name;
    name << kBackupStart << "20200101_" << std::setfill('0') << std::setw(2) << index / 3600
         << std::setw(2) << index / 60 % 60 << std::setw(2) << index % 60 << ".log";
    return name.str();
}

/// A directory with a log in it, measured again and again: each rollover finds as many backups as
/// the one before.
class RolloverCase {
public:
    RolloverCase(const fs::path& directory, int foreignFiles, int backups)
        : m_foreignFiles(foreignFiles),
          m_backups(backups),
          m_directory(directory /
                      (std::to_string(foreignFiles) + "-files-" + std::to_string(backups))),
          m_log(m_directory / "rollover.log") {
        Require(fs::create_directory(m_directory), m_directory.string() + " is there already");
        for (int i = 0; i < foreignFiles; ++i) {
            CreateEmpty(m_directory / ("foreign-" + std::to_string(i) + ".txt"));
        }
        for (int i = 0; i < backups; ++i) {
            CreateEmpty(m_directory / BackupName(i));
        }
        Require(
            m_output.SetParams(m_log.c_str(), CZoFileOutput::RolloverBySize, kLimitMB, backups) &&
                m_output.Open(),
            m_log.string() + " cannot be opened");
    }
    ~RolloverCase() {
        std::error_code ignored;
        fs::remove_all(m_directory, ignored);
    }
    RolloverCase(const RolloverCase&) = delete;
    RolloverCase& operator=(const RolloverCase&) = delete;

    void MeasureOnce(bool counts) {
        const double pass = PassOverDirectory();
        fs::resize_file(m_log, kLimit - 1);
        const Clock::time_point start = Clock::now();
        const bool written = m_output.Log(kLine);
        const double rollover = Microseconds(Clock::now() - start);
        Require(written && fs::file_size(m_log) < kLimit - 1,
                m_log.string() + " did not roll over");
        if (m_backups == 0) {
            RemoveBackup();  // no limit removes the last one
        }
        if (counts) {
            m_passes.push_back(pass);
            m_rollovers.push_back(rollover);
        }
    }

    JsonRecord Figures() const {
        return JsonRecord()
            .Add("foreign_files", m_foreignFiles)
            .Add("backups", m_backups)
            .Add("rollovers", static_cast<int>(m_rollovers.size()))
            .Add("median_us", Median(m_rollovers))
            .Add("worst_us", Worst(m_rollovers))
            .Add("directory_pass_us", Median(m_passes));
    }

private:
    struct CloseDirectory {
        void operator()(DIR* directory) const noexcept { closedir(directory); }
    };

    // The least that anybody pays who looks for backups in the directory.
    double PassOverDirectory() const {
        int found = 0;
        const Clock::time_point start = Clock::now();
        {
            const std::unique_ptr<DIR, CloseDirectory> open(opendir(m_directory.c_str()));
            while (open != nullptr && readdir(open.get()) != nullptr) {
                ++found;
            }
        }
        const double time = Microseconds(Clock::now() - start);
        Require(found > m_foreignFiles + m_backups, m_directory.string() + " lacks files");
        return time;
    }

    void RemoveBackup() const {
        fs::path backup;
        for (const fs::directory_entry& entry : fs::directory_iterator(m_directory)) {
            if (entry.path().filename().string().find(kBackupStart) == 0) {
                backup = entry.path();
            }
        }
        Require(!backup.empty() && fs::remove(backup), m_directory.string() + " has no backup");
    }

    int m_foreignFiles;
    int m_backups;
    fs::path m_directory;
    fs::path m_log;
    CZoFileOutput m_output;
    std::vector<double> m_rollovers;
    std::vector<double> m_passes;
};

}  // namespace

std::string MeasureRollover(const GrowthOptions& options) {
    std::vector<std::unique_ptr<RolloverCase>> cases;
    for (const int foreignFiles : {kFewForeignFiles, options.foreignFiles}) {
        for (const int backups : kBackups) {
            cases.push_back(
                std::make_unique<RolloverCase>(options.directory, foreignFiles, backups));
        }
    }
    // Otherwise the writing back of all these files would go on beside the first rollovers.
    sync();
    for (int round = 0; round <= options.rollovers; ++round) {
        for (const auto& one : cases) {
            one->MeasureOnce(round > 0);
        }
    }
    std::vector<JsonRecord> records;
    records.reserve(cases.size());
    for (const auto& one : cases) {
        records.push_back(one->Figures());
    }
    return JsonArray(records);
}
