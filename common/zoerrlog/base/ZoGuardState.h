#ifndef ZOERRLOG_BASE_ZOGUARDSTATE_H
#define ZOERRLOG_BASE_ZOGUARDSTATE_H

#include <atomic>
#include <cstdint>

#include <zoerrlog/base/ZoHeldGuards.h>
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

    /// `held` is the calling thread's list.
    void LockForRead(HeldGuards& held) noexcept {
        std::uint64_t word = m_word.load(std::memory_order_relaxed);
        // Nearly every line finds it so; what LockContended does would be the same, in more steps.
        if (!MayRead(word) ||
            !m_word.compare_exchange_strong(word, word + kOneHolder, std::memory_order_acquire,
                                            std::memory_order_relaxed)) {
            LockContended();
        }
        held.Add(m_serial);
    }
    void LockForWrite() noexcept;
    bool TryLockForWrite() noexcept;
    void Unlock() noexcept;
    /// Unlock, as a rule by a reader that nobody waits for.
    void UnlockRead(HeldGuards& held) noexcept {
        std::uint64_t word = m_word.load(std::memory_order_relaxed);
        // Forgotten first: once the word is changed, the next holder may destroy the guard.
        if (ReadersAlone(word) && held.RemoveLast(m_serial)) {
            if (m_word.compare_exchange_strong(word, word - kOneHolder, std::memory_order_acq_rel,
                                               std::memory_order_relaxed)) {
                return;
            }
            held.Add(m_serial);
        }
        Unlock();
    }

private:
    // Layout of the word: 24 bits of holders (signed), then twice 20 bits of waiting threads. Linux
    // has at most 2^22 threads in all, and far fewer fit into one process with a stack each.
    static constexpr unsigned kWaitingBits = 20;
    static constexpr std::uint64_t kWaitingMask = (std::uint64_t{1} << kWaitingBits) - 1;
    static constexpr unsigned kReadersShift = kWaitingBits;
    static constexpr unsigned kHoldersShift = 2 * kWaitingBits;
    static constexpr std::uint64_t kOneReaderWaiting = std::uint64_t{1} << kReadersShift;
    static constexpr std::uint64_t kOneHolder = std::uint64_t{1} << kHoldersShift;
    static constexpr std::uint64_t kWriterHolds = ~std::uint64_t{0} << kHoldersShift;

    // No writer holds the guard or waits for it.
    static bool MayRead(std::uint64_t word) noexcept {
        return (word & kWaitingMask) == 0 && static_cast<std::int64_t>(word) >= 0;
    }
    // Readers hold the guard, and nobody waits for it.
    static bool ReadersAlone(std::uint64_t word) noexcept {
        return (word & (kOneHolder - 1)) == 0 && static_cast<std::int64_t>(word) > 0;
    }

    /// The word, taken apart.
    struct Counters {
        std::int32_t holders;          ///< readers that hold the guard, or -1: a writer does
        std::uint32_t readersWaiting;  ///< at the read gate, or about to be
        std::uint32_t writersWaiting;  ///< at the write gate, or about to be
    };
    static Counters Unpack(std::uint64_t word) noexcept;
    static std::uint64_t Pack(const Counters& counters) noexcept;

    void AfterForkInChild() noexcept override;
    void LockContended() noexcept;
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
