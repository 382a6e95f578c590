#include <algorithm>
#include <cerrno>
#include <vector>

#include <zoerrlog/base/ZoOpenFlags.h>
#include <zoerrlog/output/ZoBackupName.h>
#include <zoerrlog/output/ZoFileOutput.h>
#include <zoerrlog/platform/Clock.h>
#include <zoerrlog/platform/DirectorySearch.h>
#include <zoerrlog/platform/File.h>
#include <zoi18n/zoi18n.h>

using namespace zoerrlog::base;
using namespace zoerrlog::output;
using zoerrlog::platform::kNoDescriptor;

namespace {

constexpr std::int64_t kRetrySeconds = 300;
constexpr bool kLocalTime = true;
// Other processes may take names between the search and the rename; a rollover gives up when this
// many were taken from under it.
constexpr unsigned long kMostClashes = 1000;
// What no output ever reaches; a larger number was put there by somebody else.
constexpr unsigned long kLargestNumber = 999999999;

std::vector<Backup> FindBackups(const LogFileName& log) {
    const std::string_view stem =
        log.baseName.substr(0, log.baseName.size() - log.extension.size());
    std::vector<Backup> backups;
    for (const std::string& name :
         zoerrlog::platform::FindFiles(std::string(log.directory), stem, log.extension)) {
        if (auto backup = ParseBackupName(name, log.baseName)) {
            backups.push_back(std::move(*backup));
        }
    }
    return backups;
}

// The number for a backup made at `date`: none for the first of its second, else one more than
// the highest so far, so that the order of names stays the order of time.
unsigned long NextNumber(const std::vector<Backup>& backups, std::string_view date,
                         unsigned long nextOfOwn) {
    unsigned long next = nextOfOwn;
    for (const Backup& backup : backups) {
        if (backup.date == date && backup.number < kLargestNumber) {
            next = std::max(next, backup.number + 1);
        }
    }
    return next;
}

// Makes room for one more backup; false when one of the oldest could not be removed.
bool RemoveOldest(std::vector<Backup>& backups, const LogFileName& log, int maxBackups) {
    const auto limit = static_cast<std::size_t>(maxBackups);
    if (limit == 0 || backups.size() < limit) {
        return true;
    }
    std::sort(backups.begin(), backups.end(), IsOlder);
    backups.resize(backups.size() - limit + 1);
    return std::all_of(backups.begin(), backups.end(), [&](const Backup& backup) {
        const std::string path = std::string(log.directory) + '/' + backup.name;
        // Gone is gone: another process of the product may prune the same directory.
        return ZoUnlink(path.c_str()) == 0 || errno == ENOENT;
    });
}

}  // namespace

bool CZoFileOutput::RetryIsDue() const {
    return rolloverDeferred.load(std::memory_order_acquire) &&
           zoerrlog::platform::Now().seconds >
               deferredSince.load(std::memory_order_relaxed) + kRetrySeconds;
}

bool CZoFileOutput::RetryRollover() {
    const CZoErrLogAutoCS hold(lock);
    return !RetryIsDue() || Rollover();
}

// The file stays open until a new one takes its place: lines of other threads, and of a child
// forked meanwhile, always find an open file.
bool CZoFileOutput::Rollover() {
    const auto log = SplitLogFileName(fileName);
    if (!log || fileName.size() + kDateLength + kNumberLength > kLongestBackupName) {
        return GiveUp();
    }
    std::vector<Backup> backups = FindBackups(*log);
    const std::string date =
        MakeDate(zoerrlog::platform::BreakDown(zoerrlog::platform::Now().seconds, kLocalTime));
    const bool sameSecond = std::equal(date.begin(), date.end(), lastBackupDate.begin());
    const unsigned long nextOfOwn = sameSecond ? lastBackupNumber + 1 : 0;
    const unsigned long number = NextNumber(backups, date, nextOfOwn);
    if (MakeBackupName(*log, date, number).size() > kLongestBackupName ||
        !RemoveOldest(backups, *log, maxBackups)) {
        return GiveUp();
    }
    switch (RenameToBackup(*log, date, number)) {
        case Renamed::kDone:
            return StartNewFile();
        case Renamed::kRefused:
            return GoOnAfterRefusal();
        case Renamed::kFailed:
            break;
    }
    return GiveUp();
}

// Renames the file to the first free name from `number` on. Only a name without a number waits for
// access that is denied now: for a numbered one that counts as any other failure.
CZoFileOutput::Renamed CZoFileOutput::RenameToBackup(const LogFileName& log, std::string_view date,
                                                     unsigned long number) {
    for (unsigned long clashes = 0; clashes < kMostClashes; ++clashes, ++number) {
        const std::string target = MakeBackupName(log, date, number);
        if (target.size() > kLongestBackupName) {
            return Renamed::kFailed;
        }
        if (ZoRename(fileName.c_str(), target.c_str()) == 0) {
            static_assert(std::tuple_size_v<decltype(lastBackupDate)> == kDateLength);
            std::copy(date.begin(), date.end(), lastBackupDate.begin());
            lastBackupNumber = number;
            return Renamed::kDone;
        }
        if (errno != EEXIST) {
            return errno == EACCES && number == 0 ? Renamed::kRefused : Renamed::kFailed;
        }
    }
    return Renamed::kFailed;
}

bool CZoFileOutput::GoOnAfterRefusal() {
    deferredSince.store(zoerrlog::platform::Now().seconds, std::memory_order_relaxed);
    rolloverDeferred.store(true, std::memory_order_release);
    return TakeOver(ZoOpen(fileName.c_str(), kOpenAppending, kOwnerReadWrite));
}

bool CZoFileOutput::StartNewFile() {
    rolloverDeferred.store(false, std::memory_order_release);
    const int descriptor = ZoOpen(fileName.c_str(), kOpenNew, kOwnerReadWrite);
    if (descriptor != kNoDescriptor) {
        LogHeaders(descriptor);
    }
    return TakeOver(descriptor);
}

// Puts a newly opened file in the place of the old one, under the old descriptor number: that is
// where other threads may be writing at this moment. A number that a failed retry gave up serves
// again.
bool CZoFileOutput::TakeOver(int descriptor) {
    if (descriptor == kNoDescriptor) {
        return GiveUp();
    }
    const int open = fd.load(std::memory_order_relaxed);
    const int old = open != kNoDescriptor ? open : retiredFd;
    if (old == kNoDescriptor) {
        fd.store(descriptor, std::memory_order_release);
        return true;
    }
    if (!zoerrlog::platform::ReplaceFile(old, descriptor)) {
        return GiveUp();
    }
    retiredFd = kNoDescriptor;
    fd.store(old, std::memory_order_release);
    return true;
}

bool CZoFileOutput::GiveUp() {
    const int old = fd.exchange(kNoDescriptor);
    if (IsSizeLimited()) {
        zoerrlog::platform::CloseFile(old);
    } else if (old != kNoDescriptor) {
        retiredFd = old;
    }
    return false;
}

void CZoFileOutput::LogHeaders(int descriptor) {
    if (header1.empty() || header2.empty()) {
        return;
    }
    if (zoerrlog::platform::WriteFile(descriptor, header1.data(), header1.size()) >= 0) {
        // Whether the underline follows changes nothing for the lines below it.
        static_cast<void>(
            zoerrlog::platform::WriteFile(descriptor, header2.data(), header2.size()));
    }
}
