#ifndef TESTS_SUPPORT_CHILDPROCESS_H
#define TESTS_SUPPORT_CHILDPROCESS_H

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zotest {

// A child that waits for ever is killed, and counts as failed.
constexpr unsigned kSecondsToLive = 60;

/// Forks; in the child runs `body` and ends it. What fails there is printed by the child.
template <typename Body>
pid_t StartChild(Body body) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(kSecondsToLive);
        body();
        ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    return child;
}

/// True when the child has ended and nothing failed in it.
inline bool Succeeded(pid_t child) {
    int status = -1;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

/// Runs `body` in a child of its own; true when nothing failed in it.
template <typename Body>
bool SucceedsInChild(Body body) {
    return Succeeded(StartChild(body));
}

}  // namespace zotest

#endif
