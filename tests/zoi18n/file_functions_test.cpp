#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zoi18n/zoi18n.h>

#include <cerrno>
#include <climits>
#include <string>

#include "support/ChildProcess.h"
#include "support/TemporaryDirectory.h"

namespace {

using zotest::TemporaryDirectory;

// 0 for success, otherwise errno.
int Reason(int result) {
    return result == -1 ? errno : 0;
}

TEST(ZoOpen, FlagsDecideWhatHappensToTheFile) {
    const struct {
        const char* name;
        int flags;
        int permission;
        const char* before;  // null: no file
        int reason;
        const char* afterWritingXY;
    } cases[] = {
        {"write, append, create, truncate", 0x309, 0x180, "old", 0, "newXY"},
        {"write, create, truncate", 0x301, 0x180, "old", 0, "XYw"},
        {"write, append, create", 0x109, 0x180, "old", 0, "oldnewXY"},
        {"created when absent", 0x109, 0x180, nullptr, 0, "newXY"},
        {"created for writing only", 0x109, 0x080, nullptr, 0, "newXY"},
        {"not created unless asked", 0x009, 0x180, nullptr, ENOENT, ""},
        {"reading only", 0, 0, "old", 0, "old"},
        {"an unknown bit", 0x10000 | 0x109, 0x180, "old", EINVAL, "old"},
        {"truncate for reading", 0x200, 0x180, "old", EINVAL, "old"},
    };
    for (const auto& [name, flags, permission, before, reason, after] : cases) {
        SCOPED_TRACE(name);
        const TemporaryDirectory directory;
        if (before != nullptr) {
            directory.Write("log", before);
        }
        const int descriptor = ZoOpen(directory.File("log").c_str(), flags, permission);
        EXPECT_EQ(Reason(descriptor), reason);
        if (descriptor != -1) {
            struct stat status {};
            EXPECT_EQ(::fstat(descriptor, &status), 0);
            EXPECT_TRUE(before != nullptr ||
                        (status.st_mode & 07777U) == static_cast<mode_t>(permission));
            EXPECT_NE(::fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
            EXPECT_EQ(::write(descriptor, "new", 3), flags == 0 ? -1 : 3);
            EXPECT_EQ(::lseek(descriptor, 0, SEEK_SET), 0);
            EXPECT_EQ(::write(descriptor, "XY", 2), flags == 0 ? -1 : 2);
            EXPECT_EQ(::close(descriptor), 0);
        }
        ::chmod(directory.File("log").c_str(), 0600);
        EXPECT_EQ(directory.Read("log"), after);
    }
}

TEST(FileNames, ABackslashSeparatesDirectories) {
    const TemporaryDirectory directory;
    std::filesystem::create_directory(directory.File("sub"));
    const std::string a = directory.Path() + "\\sub\\a";
    const std::string b = directory.Path() + "/sub\\b";
    EXPECT_EQ(::close(ZoOpen(a.c_str(), 0x109, 0x180)), 0);
    EXPECT_TRUE(std::filesystem::exists(directory.File("sub/a")));
    EXPECT_EQ(ZoRename(a.c_str(), b.c_str()), 0);
    EXPECT_EQ(ZoAccess(b.c_str(), 0), 0);
    EXPECT_EQ(ZoUnlink(b.c_str()), 0);
    EXPECT_TRUE(std::filesystem::is_empty(directory.File("sub")));
}

TEST(FileNames, UnusableOnesAreRefusedByEveryFunction) {
    const std::string overlong(PATH_MAX, 'x');
    for (const auto& [name, reason] : {std::pair<const char*, int>{nullptr, EINVAL},
                                       {"", ENOENT},
                                       {overlong.c_str(), ENAMETOOLONG}}) {
        EXPECT_EQ(Reason(ZoOpen(name, 0, 0)), reason);
        EXPECT_EQ(Reason(ZoUnlink(name)), reason);
        EXPECT_EQ(Reason(ZoAccess(name, 0)), reason);
        EXPECT_EQ(Reason(ZoRename(name, "/good")), reason);
        EXPECT_EQ(Reason(ZoRename("/good", name)), reason);
        EXPECT_EQ(ZoLoadLibrary(name), nullptr);
    }
}

// A directory that whoever runs the test may not change, seen by an ordinary user.
TEST(Permissions, MissingOnesAreReportedAsEacces) {
    const TemporaryDirectory directory;
    const std::string log = directory.Write("log", "text");
    const std::string absent = directory.File("new");
    ASSERT_EQ(::chmod(log.c_str(), 0444) | ::chmod(directory.Path().c_str(), 0555), 0);
    EXPECT_TRUE(zotest::SucceedsInChild([&] {
        EXPECT_TRUE(::getuid() != 0 || ::setuid(65534) == 0);
        EXPECT_EQ(ZoAccess(log.c_str(), 4), 0);
        EXPECT_EQ(Reason(ZoAccess(log.c_str(), 6)), EACCES);
        EXPECT_EQ(Reason(ZoAccess(log.c_str(), 1)), EINVAL);
        EXPECT_EQ(Reason(ZoOpen(log.c_str(), 0x109, 0x180)), EACCES);
        EXPECT_EQ(Reason(ZoUnlink(log.c_str())), EACCES);
        EXPECT_EQ(Reason(ZoRename(log.c_str(), absent.c_str())), EACCES);
    }));
    EXPECT_EQ(::chmod(directory.Path().c_str(), 0755), 0);
    EXPECT_EQ(directory.Read("log"), "text");
}

}  // namespace
