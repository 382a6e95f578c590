#ifndef ZOERRLOG_PLATFORM_CRITICALSECTION_H
#define ZOERRLOG_PLATFORM_CRITICALSECTION_H

#include <atomic>
#include <mutex>

#include <zoerrlog/platform/ForkAware.h>

namespace zoerrlog::platform {

/// A recursive mutual-exclusion lock that survives a fork: in the child it is held only if the
/// forking thread held it.
class CriticalSection final : private ForkAware {
public:
    CriticalSection() noexcept;
    ~CriticalSection();

    void Enter() noexcept;
    void Leave() noexcept;

private:
    void AfterForkInChild() noexcept override;

    std::mutex m_mutex;
    // Identifies the holding thread across a fork, where the thread's id changes.
    std::atomic<const void*> m_owner{nullptr};
    int m_depth = 0;
};

}  // namespace zoerrlog::platform

#endif
