#ifndef ZOERRLOG_PLATFORM_CRITICALSECTION_H
#define ZOERRLOG_PLATFORM_CRITICALSECTION_H

#include <atomic>
#include <cstdint>

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

    void EnterContended() noexcept;

    std::atomic<std::uint32_t> m_state{0};  // one of State in the source; threads sleep on it
    // Identifies the holding thread across a fork, where the thread's id changes.
    std::atomic<const void*> m_owner{nullptr};
    int m_depth = 0;
};

/// Holds a critical section while it lives.
class CriticalSectionHold {
public:
    explicit CriticalSectionHold(CriticalSection& section) noexcept : m_section(section) {
        m_section.Enter();
    }
    ~CriticalSectionHold() { m_section.Leave(); }
    CriticalSectionHold(const CriticalSectionHold&) = delete;
    CriticalSectionHold& operator=(const CriticalSectionHold&) = delete;

private:
    CriticalSection& m_section;
};

}  // namespace zoerrlog::platform

#endif
