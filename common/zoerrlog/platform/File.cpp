#include <zoerrlog/platform/File.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace zoerrlog::platform {
namespace {

template <typename Call>
auto RepeatWhenInterrupted(Call call) noexcept {
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

std::int64_t SizeOfUnseekable(int descriptor, int errorBefore) noexcept {
    if (errno != ESPIPE) {
        return -1;
    }
    errno = errorBefore;
    struct stat status = {};
    return fstat(descriptor, &status) == 0 ? status.st_size : -1;
}

}  // namespace

// Apart from the others because a line goes through here: as few calls deep as can be, since the
// processor cannot foretell where the calls return to that a system call has come between.
std::int64_t WriteFile(int descriptor, const void* data, std::size_t length) noexcept {
    std::int64_t written = 0;
    do {
        written = write(descriptor, data, length);
    } while (written == -1 && errno == EINTR);
    return written;
}

std::int64_t ReadFile(int descriptor, void* data, std::size_t length) noexcept {
    return RepeatWhenInterrupted([=] { return read(descriptor, data, length); });
}

std::int64_t FileSize(int descriptor) noexcept {
    // Seeking is the cheapest question for the size: a status call also asks for the time stamps,
    // which makes the next write stamp the inode anew. Whoever appends needs no position.
    const int before = errno;
    const off_t size = lseek(descriptor, 0, SEEK_END);
    return size >= 0 ? size : SizeOfUnseekable(descriptor, before);
}

void CloseFile(int descriptor) noexcept {
    if (descriptor >= 0) {
        // On Linux the descriptor is gone even when close reports an interruption or an error.
        close(descriptor);
    }
}

bool ReplaceFile(int descriptor, int replacement) noexcept {
    int result = dup3(replacement, descriptor, O_CLOEXEC);
    // EBUSY: the call met another thread's open that had just been promised the same number.
    while (result == -1 && (errno == EINTR || errno == EBUSY)) {
        result = dup3(replacement, descriptor, O_CLOEXEC);
    }
    CloseFile(replacement);
    return result != -1;
}

}  // namespace zoerrlog::platform
