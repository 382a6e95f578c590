#ifndef ZOERRLOG_PLATFORM_FORKAWARE_H
#define ZOERRLOG_PLATFORM_FORKAWARE_H

#include <cstdint>

namespace zoerrlog::platform {

/// State that a fork would leave broken in the child: held for, or by, a thread that the child
/// does not have. Every object is known to the library from its construction to its destruction.
class ForkAware {
public:
    ForkAware(const ForkAware&) = delete;
    ForkAware& operator=(const ForkAware&) = delete;

    /// Called in the child, on its only thread, before fork returns there.
    virtual void AfterForkInChild() noexcept = 0;

protected:
    ForkAware() noexcept;
    ~ForkAware();

private:
    friend class ForkRegistry;
    ForkAware* m_previous;
    ForkAware* m_next;
};

/// How many forks lie between the first process that loaded the library and this one. What a
/// thread remembers about its process or itself holds only within one generation.
std::uint32_t ForkGeneration() noexcept;

}  // namespace zoerrlog::platform

#endif
