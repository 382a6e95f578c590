#include <zoerrlog/base/ZoSemaphore.h>

#include <new>

#include <zoerrlog/platform/Semaphore.h>

using zoerrlog::platform::Semaphore;

namespace {

constexpr int kSignalled = 0;
constexpr int kTimedOut = 1;
constexpr int kFailed = -1;

Semaphore* MakeSemaphore(long initialCount, long maximumCount) {
    return Semaphore::AcceptsCounts(initialCount, maximumCount)
               ? new (std::nothrow) Semaphore(initialCount, maximumCount)
               : nullptr;
}

}  // namespace

CZoErrLogSyncBase::CZoErrLogSyncBase() : m_hHandle(nullptr) {
}

CZoErrLogSyncBase::~CZoErrLogSyncBase() {
    delete m_hHandle;
}

int CZoErrLogSyncBase::Wait(unsigned long timeout) {
    if (m_hHandle == nullptr) {
        return kFailed;
    }
    // A limit that 32 bits cannot hold is none that a thread lives to see.
    const auto milliseconds = timeout < Semaphore::kNoTimeLimit
                                  ? static_cast<std::uint32_t>(timeout)
                                  : Semaphore::kNoTimeLimit;
    return m_hHandle->Wait(milliseconds) == Semaphore::WaitResult::kSignalled ? kSignalled
                                                                              : kTimedOut;
}

bool CZoErrLogSyncBase::Test() {
    return Wait(0) == kSignalled;
}

CZoErrLogSemaphore::CZoErrLogSemaphore(long initialCount, long maximumCount, bool create) {
    if (create) {
        m_hHandle = MakeSemaphore(initialCount, maximumCount);
    }
}

bool CZoErrLogSemaphore::Init(long initialCount, long maximumCount) {
    if (m_hHandle != nullptr) {
        return false;
    }
    m_hHandle = MakeSemaphore(initialCount, maximumCount);
    return m_hHandle != nullptr;
}

void CZoErrLogSemaphore::Release(long count) {
    if (m_hHandle != nullptr) {
        m_hHandle->Release(count);
    }
}
