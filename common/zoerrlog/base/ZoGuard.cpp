#include <zoerrlog/base/ZoGuard.h>

#include <new>

#include <zoerrlog/base/ZoGuardState.h>
#include <zoerrlog/platform/Clock.h>

using zoerrlog::base::GuardState;
using zoerrlog::base::HeldGuards;

CZoErrLogGuard::CZoErrLogGuard() : m_pState(new (std::nothrow) GuardState) {
}

CZoErrLogGuard::~CZoErrLogGuard() {
    delete m_pState;
    // Volatile, or the compiler drops the last store into a dying object.
    const_cast<GuardState* volatile&>(m_pState) = nullptr;
}

void CZoErrLogGuard::LockForRead() {
    if (m_pState != nullptr) {
        m_pState->LockForRead(HeldGuards::OfThread());
    }
}

void CZoErrLogGuard::LockForWrite() {
    if (m_pState != nullptr) {
        m_pState->LockForWrite();
    }
}

bool CZoErrLogGuard::LockForExit() {
    constexpr int kAttempts = 200;
    constexpr int kPauseMilliseconds = 5;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (m_pState == nullptr || m_pState->TryLockForWrite()) {
            return true;
        }
        zoerrlog::platform::SleepFor(kPauseMilliseconds);
    }
    return false;
}

void CZoErrLogGuard::Unlock() {
    if (m_pState != nullptr) {
        m_pState->UnlockRead(HeldGuards::OfThread());
    }
}

CZoGuard::CZoGuard() {
    static_assert(sizeof(GuardState) <= kStorageSize);
    ::new (m_storage) GuardState;
}

CZoGuard::~CZoGuard() {
    State().~GuardState();
}

void CZoGuard::LockForRead() {
    State().LockForRead(HeldGuards::OfThread());
}

void CZoGuard::LockForWrite() {
    State().LockForWrite();
}

void CZoGuard::Unlock() {
    State().UnlockRead(HeldGuards::OfThread());
}

GuardState& CZoGuard::State() {
    return *std::launder(reinterpret_cast<GuardState*>(m_storage));
}
