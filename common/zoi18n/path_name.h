#ifndef ZOI18N_PATH_NAME_H
#define ZOI18N_PATH_NAME_H

#include <climits>

namespace zoi18n {

// A caller's file name with the separators the system knows. It lives on the stack: the functions
// that use it run between a log line and its file and must not allocate.
class PathName {
public:
    // On failure Get() is null and errno says why.
    explicit PathName(const char* name) noexcept;

    [[nodiscard]] const char* Get() const noexcept { return m_valid ? m_text : nullptr; }

private:
    bool m_valid = false;
    char m_text[PATH_MAX];
};

}  // namespace zoi18n

#endif
