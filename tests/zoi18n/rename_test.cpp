#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zoi18n/rename_without_replacing.h>
#include <zoi18n/zoi18n.h>

#include <cerrno>
#include <string>

#include "zoi18n/child_process.h"
#include "zoi18n/temporary_directory.h"

namespace {

using zoi18n::kSystemRenameSteps;
using zoi18n::RenameSteps;
using zotest::TemporaryDirectory;

template <int error>
int Fail(const char*, const char*) {
    errno = error;
    return -1;
}

template <int error>
int InterruptOnceThenFail(const char*, const char*) {
    static bool interrupted = false;
    errno = interrupted ? error : EINTR;
    interrupted = !interrupted;
    return -1;
}

// Keeps the old name and lets the new one be taken back.
int FailToUnlinkOld(const char* name) {
    if (std::string_view(name).ends_with("/old")) {
        errno = EBUSY;
        return -1;
    }
    return ::unlink(name);
}

struct Case {
    const char* name;
    RenameSteps steps;
    int reason;  // 0: renamed
};

RenameSteps With(int (*rename)(const char*, const char*)) {
    return {rename, kSystemRenameSteps.link, kSystemRenameSteps.unlink};
}

TEST(ZoRename, MovesTheFileOrLeavesItAsItWas) {
    const Case cases[] = {
        {"system", kSystemRenameSteps, 0},
        {"file system without the flag", With(Fail<EINVAL>), 0},
        {"kernel without the call", With(Fail<ENOSYS>), 0},
        {"not supported", With(Fail<ENOTSUP>), 0},
        {"interrupted", With(InterruptOnceThenFail<EINVAL>), 0},
        {"any other reason is final", With(Fail<EXDEV>), EXDEV},
        {"refused", With(Fail<EPERM>), EACCES},
        {"link refused", {Fail<EINVAL>, Fail<EPERM>, ::unlink}, EACCES},
        {"old name stays", {Fail<EINVAL>, ::link, FailToUnlinkOld}, EBUSY},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const TemporaryDirectory directory;
        const std::string from = directory.Write("old", "text");
        const std::string to = directory.File("new");
        const int result = zoi18n::RenameWithoutReplacing(from.c_str(), to.c_str(), c.steps);
        EXPECT_EQ(result == -1 ? errno : 0, c.reason);
        EXPECT_EQ(directory.Read(c.reason == 0 ? "new" : "old"), "text");
        EXPECT_FALSE(std::filesystem::exists(c.reason == 0 ? from : to));
    }
}

TEST(ZoRename, NeverReplacesAFile) {
    for (const RenameSteps& steps : {kSystemRenameSteps, With(Fail<EINVAL>)}) {
        const TemporaryDirectory directory;
        const std::string from = directory.Write("old", "from");
        const std::string to = directory.Write("new", "to");
        for (const std::string& target : {to, from}) {
            const int result = zoi18n::RenameWithoutReplacing(from.c_str(), target.c_str(), steps);
            EXPECT_EQ(result == -1 ? errno : 0, EEXIST);
        }
        EXPECT_EQ(directory.Read("old"), "from");
        EXPECT_EQ(directory.Read("new"), "to");
        EXPECT_EQ(ZoRename(from.c_str(), to.c_str()) == -1 ? errno : 0, EEXIST);
    }
}

TEST(ZoRename, ReportsForeignFilesInAStickyDirectoryAsEacces) {
    if (::getuid() != 0) {
        GTEST_SKIP() << "needs a file of another user";
    }
    const TemporaryDirectory directory;
    const std::string from = directory.Write("old", "text");
    ASSERT_EQ(::chmod(directory.Path().c_str(), 01777), 0);
    EXPECT_EQ(zotest::RunInChild([&] {
                  if (::setuid(65534) != 0) {
                      return 127;
                  }
                  return ZoRename(from.c_str(), directory.File("new").c_str()) == -1 ? errno : 0;
              }),
              EACCES);
}

}  // namespace
