#include <zoerrlog/platform/CriticalSection.h>

#include <new>

namespace zoerrlog::platform {
namespace {

// A thread's own copy of this has an address that no other living thread shares, and that the
// forking thread keeps in the child.
thread_local char t_identity;

}  // namespace

CriticalSection::CriticalSection() noexcept = default;

CriticalSection::~CriticalSection() = default;

void CriticalSection::Enter() noexcept {
    const void* const self = &t_identity;
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
    if (m_owner.load(std::memory_order_relaxed) == &t_identity) {
        m_mutex.lock();
    } else {
        m_owner.store(nullptr, std::memory_order_relaxed);
        m_depth = 0;
    }
}

}  // namespace zoerrlog::platform
