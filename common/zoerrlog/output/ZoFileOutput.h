#ifndef ZOERRLOG_OUTPUT_ZOFILEOUTPUT_H
#define ZOERRLOG_OUTPUT_ZOFILEOUTPUT_H

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

#include <zoerrlog/base/ZoExport.h>
#include <zoerrlog/base/ZoLocks.h>
#include <zoerrlog/output/ZoLogOutput.h>

namespace zoerrlog::output {
struct LogFileName;
}

/// Writes lines into one file: each line one write to the system, nothing held back. Depending on
/// its mode the file rolls over, when it is opened or when a line would bring it to a size limit:
/// the old file stays behind as a backup "name_YYYYMMDD_HHMMSS.ext" (local time; "_01", "_02", ...
/// follow for more within a second), and a new, empty file is started.
///
/// When the file may not be renamed, writing goes on in it, past the limit, and the rollover is
/// tried again with the first line after 300 seconds. After any other failed rollover the output
/// is closed, and Log returns false until it is opened again.
class ZOERRLOG_EXPORT CZoFileOutput : public CZoLogOutput {
public:
    /// What Open does with an existing file, and whether Log watches the size.
    enum RolloverMode {
        Overwrite = 0,               ///< starts the file again from nothing
        Append = 1,                  ///< goes on at its end
        RolloverAtOpen = 2,          ///< rolls over
        RolloverBySize = 3,          ///< goes on at its end; rolls over at the size limit
        RolloverAtOpenAndBySize = 4  ///< rolls over, also at the size limit
    };

    CZoFileOutput();
    ~CZoFileOutput() override;
    CZoFileOutput(const CZoFileOutput&) = delete;
    CZoFileOutput& operator=(const CZoFileOutput&) = delete;

    /// Opens or creates the file; a file that is open already is closed first. False when that
    /// fails, or when the rollover of modes 2 and 4 does.
    bool Open() override;
    /// Writes the text of `message` up to its first zero byte, through Log(const char*).
    bool Log(CZoErrLogMessage& message) override;
    /// Closes the file if it is open; true.
    bool Close() override;
    void EnableBuffering(bool on) override;
    bool IsBufferingEnabled() override;
    bool IsBufferingSupported() override;
    /// Keeps copies of both texts as the first lines of every file that a rollover starts; nothing
    /// changes unless both are non-empty. Writes nothing.
    void SetHeaders(CZoErrLogMessage& first, CZoErrLogMessage& second) override;

    /// Sets the file's name (slashes and backslashes separate directories; rolling over needs a
    /// directory in it and at most 235 bytes in all), the mode (0 to 4), the size limit in
    /// megabytes of 2^20 bytes (0 or more; every line starts a new file at 0, and only the low 32
    /// bits of the limit in bytes count) and the number of backups kept (0 keeps all). False, with
    /// nothing changed, for a null or empty name or a number out of range. Not to be called while
    /// another thread logs.
    virtual bool SetParams(const char* name, int mode, int maxSizeMB, int maxBackups);

    /// Writes `text` as it stands. False for a null text, when no file is open, when a rollover
    /// that is due fails, or when the write does. Any thread may call it at any time.
    virtual bool Log(const char* text);

private:
    enum class Renamed { kDone, kRefused, kFailed };
    enum OpenHow { kCreate = 0, kTruncate = 1, kAppend = 2 };

    bool IsSizeLimited() const;
    bool FileExists(const char* name) const;
    bool OpenFile(int how);
    bool CloseFile();
    bool LogMessage(std::string_view line);
    bool LogLine(std::string_view line);
    bool LogWithinLimit(std::string_view line);

    bool RetryIsDue() const;
    bool RetryRollover();
    bool Rollover();
    Renamed RenameToBackup(const zoerrlog::output::LogFileName& log, std::string_view date,
                           unsigned long number);
    bool GoOnAfterRefusal();
    bool StartNewFile();
    bool TakeOver(int descriptor);
    bool GiveUp();
    void LogHeaders(int descriptor);

    CZoErrLogCS lock;
    std::string fileName;
    std::atomic<int> fd;
    int maxBackups;
    std::uint32_t maxSize;
    int mode;
    std::atomic<bool> rolloverDeferred;
    std::atomic<std::int64_t> deferredSince;
    std::string header1;
    std::string header2;

    // A descriptor that a failed rollover gave up while other threads may still be writing to it.
    int retiredFd;
    // The latest backup that this output made: what its second has had stays known although
    // retention, or somebody else, has removed it.
    std::array<char, 16> lastBackupDate;
    unsigned long lastBackupNumber;
};

#endif
