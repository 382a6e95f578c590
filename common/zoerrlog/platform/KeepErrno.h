#ifndef ZOERRLOG_PLATFORM_KEEPERRNO_H
#define ZOERRLOG_PLATFORM_KEEPERRNO_H

#include <cerrno>

namespace zoerrlog::platform {

/// Puts errno, which belongs to the host, back to what it was.
class KeepErrno {
public:
    KeepErrno() : m_errno(errno) {}
    ~KeepErrno() { errno = m_errno; }
    KeepErrno(const KeepErrno&) = delete;
    KeepErrno& operator=(const KeepErrno&) = delete;

private:
    const int m_errno;
};

}  // namespace zoerrlog::platform

#endif
