#ifndef ZOI18N_INTERRUPTED_CALL_H
#define ZOI18N_INTERRUPTED_CALL_H

#include <cerrno>

namespace zoi18n {

template <class Call>
int RepeatWhileInterrupted(Call call) noexcept {
    int result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

}  // namespace zoi18n

#endif
