#ifndef ZOERRLOG_BASE_ZOGUARDSTATE_H
#define ZOERRLOG_BASE_ZOGUARDSTATE_H

#include <atomic>
#include <cstdint>

#include <zoerrlog/platform/ForkAware.h>
#include <zoerrlog/platform/Semaphore.h>

namespace zoerrlog::base {

/// The state of a reader-writer guard: three counters in one atomic word, and the two gates at
/// which threads wait.
///
/// Each operation is one change of the word. Whoever lets the guard go counts the threads that
/// come next as holders in that same change and then opens their gate, so a woken thread holds the
/// guard already. Once the word has been changed without a gate to open, or a gate has been
/// opened, the state is not touched again: the next holder may destroy it.
class alignas(64) GuardState final : private platform::ForkAware {
public:
    GuardState() noexcept;
    ~GuardState();

    void LockForRead() noexcept;
    void LockForWrite() noexcept;
    bool TryLockForWrite() noexcept;
    void Unlock() noexcept;

private:
    /// The word, taken apart.
    struct Counters {
        std::int32_t holders;          ///< readers that hold the guard, or -1: a writer does
        std::uint32_t readersWaiting;  ///< at the read gate, or about to be
        std::uint32_t writersWaiting;  ///< at the write gate, or about to be
    };
    static Counters Unpack(std::uint64_t word) noexcept;
    static std::uint64_t Pack(const Counters& counters) noexcept;

    void AfterForkInChild() noexcept override;
    void BeginWriting() noexcept;
    void ForgetHold(bool ofWriter) noexcept;

    std::atomic<std::uint64_t> m_word{0};
    const std::uint64_t m_serial;  // of this guard among all that the process has made
    // Who holds what, for a fork: the writing thread, and how many read holds were released by
    // threads that had not taken them.
    std::atomic<const void*> m_writer{nullptr};
    std::atomic<int> m_releasedByOthers{0};
    platform::Semaphore m_readGate;
    platform::Semaphore m_writeGate;
};

}  // namespace zoerrlog::base

#endif
