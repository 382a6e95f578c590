#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zoi18n/interrupted_call.h>
#include <zoi18n/path_name.h>
#include <zoi18n/rename_without_replacing.h>
#include <zoi18n/zoi18n.h>

#include <cerrno>

using zoi18n::PathName;
using zoi18n::RepeatWhileInterrupted;

namespace {

constexpr int kInvalidFlags = -1;

int SystemOpenFlags(int flags) noexcept {
    constexpr int known = kZoOpenWriteOnly | kZoOpenAppend | kZoOpenCreate | kZoOpenTruncate;
    const bool write = (flags & kZoOpenWriteOnly) != 0;
    const bool truncate = (flags & kZoOpenTruncate) != 0;
    // Some systems truncate on opening for reading, others do not: neither is what was meant.
    if ((flags & ~known) != 0 || (truncate && !write)) {
        return kInvalidFlags;
    }
    return O_CLOEXEC | (write ? O_WRONLY : O_RDONLY) | (truncate ? O_TRUNC : 0) |
           ((flags & kZoOpenAppend) != 0 ? O_APPEND : 0) |
           ((flags & kZoOpenCreate) != 0 ? O_CREAT : 0);
}

mode_t SystemMode(int permission) noexcept {
    mode_t mode = 0;
    if ((permission & kZoPermissionOwnerRead) != 0) {
        mode |= S_IRUSR;
    }
    if ((permission & kZoPermissionOwnerWrite) != 0) {
        mode |= S_IWUSR;
    }
    return mode;
}

}  // namespace

int ZoOpen(const char* name, int flags, int permission) {
    const PathName path(name);
    if (path.Get() == nullptr) {
        return -1;
    }
    const int systemFlags = SystemOpenFlags(flags);
    if (systemFlags == kInvalidFlags) {
        errno = EINVAL;
        return -1;
    }
    return RepeatWhileInterrupted(
        [&] { return ::open(path.Get(), systemFlags, SystemMode(permission)); });
}

int ZoRename(const char* from, const char* to) {
    const PathName oldPath(from);
    if (oldPath.Get() == nullptr) {
        return -1;
    }
    const PathName newPath(to);
    if (newPath.Get() == nullptr) {
        return -1;
    }
    return zoi18n::RenameWithoutReplacing(oldPath.Get(), newPath.Get(), zoi18n::kSystemRenameSteps);
}

int ZoUnlink(const char* name) {
    const PathName path(name);
    if (path.Get() == nullptr) {
        return -1;
    }
    return RepeatWhileInterrupted([&] { return ::unlink(path.Get()); });
}

int ZoAccess(const char* name, int mode) {
    static_assert(kZoAccessExists == F_OK && kZoAccessRead == R_OK && kZoAccessWrite == W_OK);
    const PathName path(name);
    if (path.Get() == nullptr) {
        return -1;
    }
    if ((mode & ~(kZoAccessRead | kZoAccessWrite)) != 0) {
        errno = EINVAL;
        return -1;
    }
    return RepeatWhileInterrupted([&] { return ::access(path.Get(), mode); });
}
