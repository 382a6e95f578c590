#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>
#include <zoi18n/interrupted_call.h>
#include <zoi18n/rename_without_replacing.h>

#include <cerrno>

namespace zoi18n {

namespace {

int SystemRename(const char* from, const char* to) {
    return ::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE);
}

int LinkAndUnlink(const char* from, const char* to, const RenameSteps& steps) noexcept {
    if (RepeatWhileInterrupted([&] { return steps.link(from, to); }) == -1) {
        return -1;
    }
    if (RepeatWhileInterrupted([&] { return steps.unlink(from); }) == 0) {
        return 0;
    }
    // The caller is told why the old name stayed; whether the new one could be taken back as well
    // would not help it.
    const int reason = errno;
    static_cast<void>(RepeatWhileInterrupted([&] { return steps.unlink(to); }));
    errno = reason;
    return -1;
}

}  // namespace

const RenameSteps kSystemRenameSteps = {SystemRename, ::link, ::unlink};

int RenameWithoutReplacing(const char* from, const char* to, const RenameSteps& steps) noexcept {
    int result = RepeatWhileInterrupted([&] { return steps.renameWithoutReplacing(from, to); });
    // A kernel that lacks the call gives ENOSYS; a file system that lacks the flag gives EINVAL, or
    // ENOTSUP behind some network and user-space file systems.
    if (result == -1 && (errno == EINVAL || errno == ENOSYS || errno == ENOTSUP)) {
        result = LinkAndUnlink(from, to, steps);
    }
    if (result == -1 && errno == EPERM) {
        errno = EACCES;
    }
    return result;
}

}  // namespace zoi18n
