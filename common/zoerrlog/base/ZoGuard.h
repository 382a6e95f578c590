#ifndef ZOERRLOG_BASE_ZOGUARD_H
#define ZOERRLOG_BASE_ZOGUARD_H

#include <cstddef>

#include <zoerrlog/base/ZoExport.h>

namespace zoerrlog::base {
class GuardState;
}

/// Reader-writer guard that prefers writers, held through an owned pointer.
///
/// Many threads hold it for reading at once, one for writing. A reader that arrives while a writer
/// waits queues behind it; the thread that lets the guard go hands it to a waiting writer first,
/// otherwise to all waiting readers together, so that no later arrival comes in between.
///
/// Each LockForRead and LockForWrite is matched by exactly one Unlock, from any thread. The guard
/// is not re-entrant: a thread that holds it and locks it again may wait for itself for ever.
/// In a forked child only the forking thread's own holds remain (for reading, its latest 32).
///
/// A guard that holds no state (there was no memory for it, or it has been destroyed) accepts
/// every operation and does nothing. No thread may hold a guard or wait for it when it is
/// destroyed. Neither copied nor assigned.
class ZOERRLOG_EXPORT CZoErrLogGuard {
public:
    CZoErrLogGuard();
    ~CZoErrLogGuard();
    CZoErrLogGuard(const CZoErrLogGuard&) = delete;
    CZoErrLogGuard& operator=(const CZoErrLogGuard&) = delete;

    void LockForRead();
    void LockForWrite();
    void Unlock();

private:
    friend class CZoLogger;
    friend class CZoLoggerList;
    // LockForWrite, but gives up after about a second: a process that exits is not held up by a
    // thread that is stuck, nor by the one that exits from within.
    bool LockForExit();

    zoerrlog::base::GuardState* m_pState;
};

/// The same guard with its state held by value: no allocation, never without a state.
class ZOERRLOG_EXPORT CZoGuard {
public:
    CZoGuard();
    ~CZoGuard();
    CZoGuard(const CZoGuard&) = delete;
    CZoGuard& operator=(const CZoGuard&) = delete;

    void LockForRead();
    void LockForWrite();
    void Unlock();

private:
    static constexpr std::size_t kStorageSize = 320;
    zoerrlog::base::GuardState& State();

    alignas(64) unsigned char m_storage[kStorageSize];
};

/// Holds a CZoErrLogGuard for reading from its construction to its destruction.
class CZoErrLogAutoReader {
public:
    explicit CZoErrLogAutoReader(CZoErrLogGuard& guard) : m_guard(guard) { m_guard.LockForRead(); }
    ~CZoErrLogAutoReader() { m_guard.Unlock(); }
    CZoErrLogAutoReader(const CZoErrLogAutoReader&) = delete;
    CZoErrLogAutoReader& operator=(const CZoErrLogAutoReader&) = delete;

private:
    CZoErrLogGuard& m_guard;
};

/// Holds a CZoErrLogGuard for writing from its construction to its destruction.
class CZoErrLogAutoWriter {
public:
    explicit CZoErrLogAutoWriter(CZoErrLogGuard& guard) : m_guard(guard) { m_guard.LockForWrite(); }
    ~CZoErrLogAutoWriter() { m_guard.Unlock(); }
    CZoErrLogAutoWriter(const CZoErrLogAutoWriter&) = delete;
    CZoErrLogAutoWriter& operator=(const CZoErrLogAutoWriter&) = delete;

private:
    CZoErrLogGuard& m_guard;
};

#endif
