#ifndef TESTS_ZOI18N_CHILD_PROCESS_H
#define TESTS_ZOI18N_CHILD_PROCESS_H

#include <sys/wait.h>
#include <unistd.h>

namespace zotest {

// Runs a function in a forked child; gives what it returned, 0 to 127, or -1 for any other end.
template <class Function>
int RunInChild(Function function) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::alarm(60);
        ::_exit(function());
    }
    int status = 0;
    if (child == -1 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) {
        return -1;
    }
    return WEXITSTATUS(status);
}

}  // namespace zotest

#endif
