#include <zoerrlog/platform/Console.h>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace zoerrlog::platform {
namespace {

// The console is the process's standard output and nothing else: its handle is this object's
// address.
struct StandardOutput {
    int descriptor = STDOUT_FILENO;
} g_standardOutput;

constexpr int kNoTimeLimit = -1;

// True when a failed write may be tried again. A terminal that the host made non-blocking is
// waited for, as a blocking one would be.
bool MayTryAgain(int descriptor) {
    if (errno == EINTR) {
        return true;
    }
    if (errno != EAGAIN) {
        return false;
    }
    struct pollfd writable = {descriptor, POLLOUT, 0};
    return poll(&writable, 1, kNoTimeLimit) == 1 && (writable.revents & POLLOUT) != 0;
}

}  // namespace

void* OpenConsole() noexcept {
    return fcntl(STDOUT_FILENO, F_GETFD) == -1 ? nullptr : &g_standardOutput;
}

long WriteConsole(void* console, const char* text, std::size_t length) noexcept {
    const int descriptor = static_cast<StandardOutput*>(console)->descriptor;
    // Asked every time: a host may redirect its standard output at any moment, and a closed
    // descriptor may by now be some other file of the host's.
    if (isatty(descriptor) == 0) {
        return -1;
    }
    std::size_t written = 0;
    while (written < length) {
        const ssize_t result = write(descriptor, text + written, length - written);
        if (result >= 0) {
            written += static_cast<std::size_t>(result);
        } else if (!MayTryAgain(descriptor)) {
            return written == 0 ? -1 : static_cast<long>(written);
        }
    }
    return static_cast<long>(written);
}

void FreeConsole(void* /*console*/) noexcept {
}

}  // namespace zoerrlog::platform
