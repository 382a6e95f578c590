#ifndef ZOERRLOG_OUTPUT_ZOBACKUPNAME_H
#define ZOERRLOG_OUTPUT_ZOBACKUPNAME_H

#include <cstddef>
#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace zoerrlog::output {

/// Bytes of a complete backup name, directory included.
constexpr std::size_t kLongestBackupName = 254;
/// Bytes of the date in a backup name: "_YYYYMMDD_HHMMSS".
constexpr std::size_t kDateLength = 16;
/// Bytes of the shortest number behind the date: "_01".
constexpr std::size_t kNumberLength = 3;

/// A log file's name, taken apart. The parts point into the name.
struct LogFileName {
    std::string_view directory;  ///< without the separator that ends it
    std::string_view baseName;
    std::string_view stem;       ///< of the whole name, up to the extension
    std::string_view extension;  ///< from the last dot of the base name on; may be empty
};

/// Nothing when the name has no directory.
std::optional<LogFileName> SplitLogFileName(std::string_view fileName);

/// A backup found beside the log file.
struct Backup {
    std::string name;          ///< without the directory
    std::string date;          ///< as MakeDate writes it
    unsigned long number = 0;  ///< 0 for a name without one
};

/// By date, then by number: the order in which the backups were made.
bool IsOlder(const Backup& left, const Backup& right);

/// `foundName` as a backup of the log file whose base name is `baseName`; nothing when it is not
/// one.
std::optional<Backup> ParseBackupName(std::string_view foundName, std::string_view baseName);

/// "_YYYYMMDD_HHMMSS".
std::string MakeDate(const std::tm& localTime);

/// The complete name of the backup made at `date`; its number is left out when it is 0.
std::string MakeBackupName(const LogFileName& log, std::string_view date, unsigned long number);

}  // namespace zoerrlog::output

#endif
