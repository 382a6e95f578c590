#include <zoi18n/path_name.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace zoi18n {

PathName::PathName(const char* name) noexcept {
    if (name == nullptr) {
        errno = EINVAL;
        return;
    }
    const std::size_t length = ::strnlen(name, sizeof m_text);
    if (length == 0 || length == sizeof m_text) {
        errno = length == 0 ? ENOENT : ENAMETOOLONG;
        return;
    }
    std::replace_copy(name, name + length + 1, m_text, '\\', '/');
    m_valid = true;
}

}  // namespace zoi18n
