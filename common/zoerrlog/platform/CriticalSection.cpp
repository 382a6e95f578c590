#include <zoerrlog/platform/CriticalSection.h>

#include <new>

#include <zoerrlog/platform/Process.h>

namespace zoerrlog::platform {
CriticalSection::CriticalSection() noexcept = default;

CriticalSection::~CriticalSection() = default;

void CriticalSection::Enter() noexcept {
    const void* const self = ThreadIdentity();
    if (m_owner.load(std::memory_order_relaxed) == self) {
        ++m_depth;
        return;
    }
    m_mutex.lock();
    m_owner.store(self, std::memory_order_relaxed);
    m_depth = 1;
}

void CriticalSection::Leave() noexcept {
    if (--m_depth == 0) {
        m_owner.store(nullptr, std::memory_order_relaxed);
        m_mutex.unlock();
    }
}

void CriticalSection::AfterForkInChild() noexcept {
    // Whatever the other threads left in the mutex went with them.
    ::new (&m_mutex) std::mutex;
    if (m_owner.load(std::memory_order_relaxed) == ThreadIdentity()) {
        m_mutex.lock();
    } else {
        m_owner.store(nullptr, std::memory_order_relaxed);
        m_depth = 0;
    }
}

}  // namespace zoerrlog::platform
