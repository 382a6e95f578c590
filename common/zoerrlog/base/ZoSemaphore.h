#ifndef ZOERRLOG_BASE_ZOSEMAPHORE_H
#define ZOERRLOG_BASE_ZOSEMAPHORE_H

#include <zoerrlog/base/ZoExport.h>

namespace zoerrlog::platform {
class Semaphore;
}

/// Base of waitable objects: the handle, and waiting on it. Exists only as a base.
class ZOERRLOG_EXPORT CZoErrLogSyncBase {
public:
    CZoErrLogSyncBase(const CZoErrLogSyncBase&) = delete;
    CZoErrLogSyncBase& operator=(const CZoErrLogSyncBase&) = delete;

    /// Waits on the handle for at most `timeout` milliseconds; 0xFFFFFFFF waits without limit.
    /// Returns 0 when signalled (a semaphore has then given one unit of its count), 1 when the
    /// time ran out, -1 for every other outcome, among them a wait without a handle.
    /// Any thread may call it. Waiting threads are served in the order of their arrival.
    int Wait(unsigned long timeout);

    /// Wait with a time limit of zero; true when signalled.
    bool Test();

protected:
    CZoErrLogSyncBase();
    ~CZoErrLogSyncBase();

    zoerrlog::platform::Semaphore* m_hHandle;
};

/// A counting semaphore with a maximum count.
class ZOERRLOG_EXPORT CZoErrLogSemaphore : public CZoErrLogSyncBase {
public:
    /// With `create`, makes the semaphore at once, with an initial count of 0 or more and a
    /// maximum of at least 1 that the initial count does not exceed; any other counts, and a lack
    /// of memory, leave the object without a handle. Without `create` it holds none until Init.
    explicit CZoErrLogSemaphore(long initialCount = 0, long maximumCount = 0, bool create = false);

    /// Makes the semaphore as above. False, with nothing changed, when a handle is held already
    /// or none could be made.
    bool Init(long initialCount, long maximumCount);

    /// Adds `count` units in one step; the units go to the threads that wait, in order of arrival.
    /// A count of 0 or less, or one that would pass the maximum, has no effect.
    void Release(long count);
};

#endif
