#ifndef ZOERRLOG_BASE_ZOREADHOLD_H
#define ZOERRLOG_BASE_ZOREADHOLD_H

#include <zoerrlog/base/ZoGuardState.h>
#include <zoerrlog/base/ZoHeldGuards.h>

namespace zoerrlog::base {

/// Holds the guard of `state` for reading while it lives, as CZoErrLogAutoReader does, for a line
/// on its way: the thread's list of holds is looked up once for both steps. A null `state` is a
/// guard that holds none.
class ReadHold {
public:
    explicit ReadHold(GuardState* state) noexcept : m_state(state), m_held(HeldGuards::OfThread()) {
        if (m_state != nullptr) {
            m_state->LockForRead(m_held);
        }
    }
    ~ReadHold() {
        if (m_state != nullptr) {
            m_state->UnlockRead(m_held);
        }
    }
    ReadHold(const ReadHold&) = delete;
    ReadHold& operator=(const ReadHold&) = delete;

private:
    GuardState* const m_state;
    HeldGuards& m_held;
};

}  // namespace zoerrlog::base

#endif
