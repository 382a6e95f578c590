#ifndef ZOERRLOG_BASE_ZOLOCKS_H
#define ZOERRLOG_BASE_ZOLOCKS_H

#include <cstddef>

#include <zoerrlog/base/ZoExport.h>

namespace zoerrlog::platform {
class CriticalSection;
}

/// A recursive mutual-exclusion lock held by value.
///
/// The thread that holds it may enter it again without blocking and leaves it as often as it
/// entered. In a forked child the lock is held only if the forking thread held it. Neither copied
/// nor assigned; no thread may hold it or wait for it when it is destroyed.
class ZOERRLOG_EXPORT CZoErrLogCriticalSection {
public:
    CZoErrLogCriticalSection();
    ~CZoErrLogCriticalSection();
    CZoErrLogCriticalSection(const CZoErrLogCriticalSection&) = delete;
    CZoErrLogCriticalSection& operator=(const CZoErrLogCriticalSection&) = delete;

    /// Takes the lock, waiting until no other thread holds it.
    void Enter();
    /// Gives back one Enter of the calling thread.
    void Leave();

private:
    static constexpr std::size_t kStorageSize = 96;
    zoerrlog::platform::CriticalSection& Section();

    // The platform's critical section lives here; its type stays out of the public headers.
    alignas(std::max_align_t) unsigned char m_storage[kStorageSize];
};

/// Holds a CZoErrLogCriticalSection from its construction to its destruction.
class CZoErrLogPrivAutoCS {
public:
    explicit CZoErrLogPrivAutoCS(CZoErrLogCriticalSection& section) : m_section(section) {
        m_section.Enter();
    }
    ~CZoErrLogPrivAutoCS() { m_section.Leave(); }
    CZoErrLogPrivAutoCS(const CZoErrLogPrivAutoCS&) = delete;
    CZoErrLogPrivAutoCS& operator=(const CZoErrLogPrivAutoCS&) = delete;

private:
    CZoErrLogCriticalSection& m_section;
};

/// A recursive mutual-exclusion lock held through an owned pointer.
///
/// As CZoErrLogCriticalSection, but an object that holds no lock (there was no memory for it, or
/// it has been destroyed) accepts Enter and Leave and does nothing.
class ZOERRLOG_EXPORT CZoErrLogCS {
public:
    CZoErrLogCS();
    ~CZoErrLogCS();
    CZoErrLogCS(const CZoErrLogCS&) = delete;
    CZoErrLogCS& operator=(const CZoErrLogCS&) = delete;

    void Enter();
    void Leave();

private:
    zoerrlog::platform::CriticalSection* m_pSection;
};

/// Holds a CZoErrLogCS from its construction to its destruction; over one that holds no lock at
/// the moment, the respective step does nothing.
class CZoErrLogAutoCS {
public:
    explicit CZoErrLogAutoCS(CZoErrLogCS& section) : m_section(section) { m_section.Enter(); }
    ~CZoErrLogAutoCS() { m_section.Leave(); }
    CZoErrLogAutoCS(const CZoErrLogAutoCS&) = delete;
    CZoErrLogAutoCS& operator=(const CZoErrLogAutoCS&) = delete;

private:
    CZoErrLogCS& m_section;
};

#endif
