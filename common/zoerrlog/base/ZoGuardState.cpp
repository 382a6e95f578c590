#include <zoerrlog/base/ZoGuardState.h>

#include <algorithm>
#include <limits>

#include <zoerrlog/platform/Process.h>

namespace zoerrlog::base {
namespace {

constexpr long kGateMaximum = std::numeric_limits<std::int32_t>::max();

std::atomic<std::uint64_t> g_guardsMade{0};

}  // namespace

GuardState::Counters GuardState::Unpack(std::uint64_t word) noexcept {
    return {static_cast<std::int32_t>(static_cast<std::int64_t>(word) >> kHoldersShift),
            static_cast<std::uint32_t>(word >> kReadersShift & kWaitingMask),
            static_cast<std::uint32_t>(word & kWaitingMask)};
}

std::uint64_t GuardState::Pack(const Counters& counters) noexcept {
    const auto holders = static_cast<std::uint64_t>(static_cast<std::int64_t>(counters.holders));
    return holders * kOneHolder | std::uint64_t{counters.readersWaiting} * kOneReaderWaiting |
           counters.writersWaiting;
}

GuardState::GuardState() noexcept
    : m_serial(++g_guardsMade), m_readGate(0, kGateMaximum), m_writeGate(0, kGateMaximum) {
}

GuardState::~GuardState() = default;

void GuardState::LockContended() noexcept {
    std::uint64_t word = m_word.load(std::memory_order_relaxed);
    bool mustWait = false;
    std::uint64_t next = 0;
    do {
        Counters counters = Unpack(word);
        mustWait = counters.writersWaiting != 0 || counters.holders < 0;
        if (mustWait) {
            ++counters.readersWaiting;
        } else {
            ++counters.holders;
        }
        next = Pack(counters);
    } while (!m_word.compare_exchange_weak(word, next, std::memory_order_acquire,
                                           std::memory_order_relaxed));
    if (mustWait) {
        m_readGate.Wait(platform::Semaphore::kNoTimeLimit);
    }
}

void GuardState::LockForWrite() noexcept {
    std::uint64_t word = m_word.load(std::memory_order_relaxed);
    bool mustWait = false;
    std::uint64_t next = 0;
    do {
        Counters counters = Unpack(word);
        mustWait = counters.holders != 0;
        if (mustWait) {
            ++counters.writersWaiting;
        } else {
            counters.holders = -1;
        }
        next = Pack(counters);
    } while (!m_word.compare_exchange_weak(word, next, std::memory_order_acquire,
                                           std::memory_order_relaxed));
    if (mustWait) {
        m_writeGate.Wait(platform::Semaphore::kNoTimeLimit);
    }
    BeginWriting();
}

bool GuardState::TryLockForWrite() noexcept {
    std::uint64_t free = 0;
    if (!m_word.compare_exchange_strong(free, kWriterHolds, std::memory_order_acquire,
                                        std::memory_order_relaxed)) {
        return false;
    }
    BeginWriting();
    return true;
}

void GuardState::BeginWriting() noexcept {
    m_writer.store(platform::ThreadIdentity(), std::memory_order_relaxed);
}

void GuardState::ForgetHold(bool ofWriter) noexcept {
    if (ofWriter) {
        m_writer.store(nullptr, std::memory_order_relaxed);
    } else if (!HeldGuards::OfThread().Remove(m_serial)) {
        m_releasedByOthers.fetch_add(1, std::memory_order_relaxed);
    }
}

void GuardState::Unlock() noexcept {
    std::uint64_t word = m_word.load(std::memory_order_relaxed);
    if (Unpack(word).holders == 0) {
        return;  // a hold that a fork has ended
    }
    ForgetHold(Unpack(word).holders < 0);
    platform::Semaphore* gate = nullptr;
    std::uint32_t admitted = 0;
    std::uint64_t next = 0;
    do {
        Counters counters = Unpack(word);
        counters.holders += counters.holders > 0 ? -1 : 1;
        gate = nullptr;
        if (counters.holders == 0 && counters.writersWaiting > 0) {
            --counters.writersWaiting;
            counters.holders = -1;
            gate = &m_writeGate;
            admitted = 1;
        } else if (counters.holders == 0 && counters.readersWaiting > 0) {
            admitted = counters.readersWaiting;
            counters.holders = static_cast<std::int32_t>(admitted);
            counters.readersWaiting = 0;
            gate = &m_readGate;
        }
        next = Pack(counters);
    } while (!m_word.compare_exchange_weak(word, next, std::memory_order_acq_rel,
                                           std::memory_order_relaxed));
    if (gate != nullptr) {
        gate->Release(static_cast<long>(admitted));
    }
}

void GuardState::AfterForkInChild() noexcept {
    Counters counters = Unpack(m_word.load(std::memory_order_relaxed));
    if (counters.holders < 0) {
        const bool own = m_writer.load(std::memory_order_relaxed) == platform::ThreadIdentity();
        counters.holders = own ? -1 : 0;
    } else {
        const int listed = HeldGuards::OfThread().Count(m_serial);
        const int released = m_releasedByOthers.load(std::memory_order_relaxed);
        counters.holders = std::clamp(listed - released, 0, counters.holders);
        m_releasedByOthers.store(listed - counters.holders, std::memory_order_relaxed);
    }
    counters.readersWaiting = 0;
    counters.writersWaiting = 0;
    m_word.store(Pack(counters), std::memory_order_relaxed);
    // Units that were meant for threads of the parent would let a later thread in too early.
    m_readGate.Empty();
    m_writeGate.Empty();
}

}  // namespace zoerrlog::base
