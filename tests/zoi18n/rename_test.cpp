#include <gtest/gtest.h>
#include <unistd.h>
#include <zoi18n/rename_without_replacing.h>

#include <cerrno>
#include <string>

#include "support/TemporaryDirectory.h"

namespace {

using zoi18n::kSystemRenameSteps;
using zoi18n::RenameSteps;
using zotest::TemporaryDirectory;

template <int error>
int Fail(const char*, const char*) {
    errno = error;
    return -1;
}

int FailAfterAnInterruption(const char*, const char*) {
    static bool interrupted = false;
    interrupted = !interrupted;
    errno = interrupted ? EINTR : EINVAL;
    return -1;
}

// Keeps the old name and lets the new one be taken back.
int FailToUnlinkOld(const char* name) {
    errno = EBUSY;
    return std::string_view(name).ends_with("/old") ? -1 : ::unlink(name);
}

TEST(ZoRename, MovesTheFileOrLeavesAllAsItWas) {
    const struct {
        const char* name;
        RenameSteps steps;
        const char* target;  // empty: there is none
        int reason;          // 0: renamed
    } cases[] = {
        {"system", kSystemRenameSteps, "", 0},
        {"system, onto a file", kSystemRenameSteps, "kept", EEXIST},
        {"file system without the flag", {Fail<EINVAL>, ::link, ::unlink}, "", 0},
        {"the same, onto a file", {Fail<EINVAL>, ::link, ::unlink}, "kept", EEXIST},
        {"kernel without the call", {Fail<ENOSYS>, ::link, ::unlink}, "", 0},
        {"not supported", {Fail<ENOTSUP>, ::link, ::unlink}, "", 0},
        {"interrupted", {FailAfterAnInterruption, ::link, ::unlink}, "", 0},
        {"any other reason is final", {Fail<EXDEV>, ::link, ::unlink}, "", EXDEV},
        {"refused", {Fail<EPERM>, ::link, ::unlink}, "", EACCES},
        {"link refused", {Fail<EINVAL>, Fail<EPERM>, ::unlink}, "", EACCES},
        {"old name stays", {Fail<EINVAL>, ::link, FailToUnlinkOld}, "", EBUSY},
    };
    for (const auto& [name, steps, target, reason] : cases) {
        SCOPED_TRACE(name);
        const TemporaryDirectory directory;
        const std::string from = directory.Write("old", "text");
        const std::string to =
            *target == 0 ? directory.File("new") : directory.Write("new", target);
        const int result = zoi18n::RenameWithoutReplacing(from.c_str(), to.c_str(), steps);
        EXPECT_EQ(result == -1 ? errno : 0, reason);
        EXPECT_EQ(directory.Read("old"), reason == 0 ? "" : "text");
        EXPECT_EQ(directory.Read("new"), reason == 0 ? "text" : target);
        EXPECT_EQ(std::filesystem::exists(to), reason == 0 || *target != 0);
    }
}

}  // namespace
