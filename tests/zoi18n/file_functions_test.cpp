#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zoi18n/zoi18n.h>

#include <cerrno>
#include <climits>
#include <string>

#include "zoi18n/child_process.h"
#include "zoi18n/temporary_directory.h"

namespace {

using zotest::TemporaryDirectory;

// 0 for success, otherwise errno.
int Reason(int result) {
    return result == -1 ? errno : 0;
}

int OpenAndClose(const std::string& name, int flags) {
    const int descriptor = ZoOpen(name.c_str(), flags, 0x180);
    return descriptor == -1 ? errno : ::close(descriptor);
}

TEST(ZoOpen, FlagsDecideWhatHappensToTheFile) {
    struct Case {
        const char* name;
        int flags;
        const char* before;  // null: no file
        int reason;
        const char* afterWritingXY;
    };
    const Case cases[] = {
        {"write, append, create, truncate", 0x309, "old", 0, "newXY"},
        {"write, create, truncate", 0x301, "old", 0, "XYw"},
        {"write, append, create", 0x109, "old", 0, "oldnewXY"},
        {"created when absent", 0x109, nullptr, 0, "newXY"},
        {"not created unless asked", 0x009, nullptr, ENOENT, ""},
        {"an unknown bit", 0x10000 | 0x109, "old", EINVAL, "old"},
        {"read and write", 0x0002, "old", EINVAL, "old"},
        {"truncate for reading", 0x200, "old", EINVAL, "old"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const TemporaryDirectory directory;
        if (c.before != nullptr) {
            directory.Write("log", c.before);
        }
        const int descriptor = ZoOpen(directory.File("log").c_str(), c.flags, 0x180);
        EXPECT_EQ(Reason(descriptor), c.reason);
        if (descriptor != -1) {
            EXPECT_EQ(::write(descriptor, "new", 3), 3);
            EXPECT_EQ(::lseek(descriptor, 0, SEEK_SET), 0);
            EXPECT_EQ(::write(descriptor, "XY", 2), 2);
            EXPECT_EQ(::close(descriptor), 0);
        }
        EXPECT_EQ(directory.Read("log"), c.afterWritingXY);
    }
}

TEST(ZoOpen, FlagsOfZeroOpenForReadingOnly) {
    const TemporaryDirectory directory;
    const int descriptor = ZoOpen(directory.Write("log", "text").c_str(), 0, 0);
    char byte = 0;
    EXPECT_EQ(::read(descriptor, &byte, 1), 1);
    EXPECT_EQ(::write(descriptor, "x", 1), -1);
    EXPECT_EQ(::close(descriptor), 0);
}

TEST(ZoOpen, CreatesWithTheOwnersPermissionsAndClosesOnExecution) {
    const TemporaryDirectory directory;
    for (const auto& [permission, mode] : {std::pair{0x180, 0600}, {0x100, 0400}, {0x080, 0200}}) {
        const std::string name = directory.File("log" + std::to_string(permission));
        const int descriptor = ZoOpen(name.c_str(), 0x109, permission);
        struct stat status {};
        ASSERT_EQ(::fstat(descriptor, &status), 0);
        EXPECT_EQ(status.st_mode & 07777U, static_cast<mode_t>(mode));
        EXPECT_NE(::fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
        EXPECT_EQ(::close(descriptor), 0);
    }
}

TEST(FileNames, ABackslashSeparatesDirectories) {
    const TemporaryDirectory directory;
    std::filesystem::create_directory(directory.File("sub"));
    const std::string a = directory.Path() + "\\sub\\a";
    const std::string b = directory.Path() + "/sub\\b";
    EXPECT_EQ(OpenAndClose(a, 0x109), 0);
    EXPECT_TRUE(std::filesystem::exists(directory.File("sub/a")));
    EXPECT_EQ(ZoRename(a.c_str(), b.c_str()), 0);
    EXPECT_EQ(ZoAccess(b.c_str(), 0), 0);
    EXPECT_EQ(ZoUnlink(b.c_str()), 0);
    EXPECT_TRUE(std::filesystem::is_empty(directory.File("sub")));
}

TEST(FileNames, UnusableOnesAreRefusedByEveryFunction) {
    const TemporaryDirectory directory;
    const std::string good = directory.Write("good", "");
    const std::string overlong(PATH_MAX, 'x');
    for (const auto& [name, reason] : {std::pair<const char*, int>{nullptr, EINVAL},
                                       {"", ENOENT},
                                       {overlong.c_str(), ENAMETOOLONG}}) {
        SCOPED_TRACE(reason);
        EXPECT_EQ(Reason(ZoOpen(name, 0, 0)), reason);
        EXPECT_EQ(Reason(ZoUnlink(name)), reason);
        EXPECT_EQ(Reason(ZoAccess(name, 0)), reason);
        EXPECT_EQ(Reason(ZoRename(name, good.c_str())), reason);
        EXPECT_EQ(Reason(ZoRename(good.c_str(), name)), reason);
    }
}

// A directory that whoever runs the test may not change, seen by an ordinary user.
TEST(Permissions, MissingOnesAreReportedAsEacces) {
    const TemporaryDirectory directory;
    const std::string log = directory.Write("log", "text");
    ASSERT_EQ(::chmod(log.c_str(), 0444), 0);
    ASSERT_EQ(::chmod(directory.Path().c_str(), 0555), 0);
    const int failedStep = zotest::RunInChild([&] {
        if (::getuid() == 0 && ::setuid(65534) != 0) {
            return 1;
        }
        const int results[] = {
            Reason(ZoAccess(log.c_str(), 0)) == 0 ? EACCES : 0,
            Reason(ZoAccess(log.c_str(), 4)) == 0 ? EACCES : 0,
            Reason(ZoAccess(log.c_str(), 2)),
            Reason(ZoAccess(log.c_str(), 6)),
            OpenAndClose(log, 0x109),
            OpenAndClose(directory.File("new"), 0x309),
            Reason(ZoUnlink(log.c_str())),
            Reason(ZoRename(log.c_str(), directory.File("new").c_str())),
        };
        int step = 2;
        for (const int result : results) {
            if (result != EACCES) {
                return step;
            }
            ++step;
        }
        return 0;
    });
    EXPECT_EQ(failedStep, 0);
    EXPECT_EQ(::chmod(directory.Path().c_str(), 0755), 0);
    EXPECT_EQ(directory.Read("log"), "text");
}

TEST(ZoAccess, UnknownModesAndAbsentFilesFail) {
    const TemporaryDirectory directory;
    const std::string file = directory.Write("log", "");
    EXPECT_EQ(Reason(ZoAccess(file.c_str(), 1)), EINVAL);
    EXPECT_EQ(Reason(ZoAccess(file.c_str(), -1)), EINVAL);
    EXPECT_EQ(Reason(ZoAccess(directory.File("none").c_str(), 0)), ENOENT);
}

}  // namespace
