#include <zoerrlog/base/ZoHeldGuards.h>

#include <algorithm>
#include <iterator>

namespace zoerrlog::base {
namespace {

constinit thread_local HeldGuards t_held;

}  // namespace

__attribute__((noinline)) HeldGuards& HeldGuards::OfThread() noexcept {
    return t_held;
}

void HeldGuards::PushOutFirst() noexcept {
    std::copy(std::next(m_entries), std::end(m_entries), m_entries);
    --m_size;
    ++m_pushedOut;
}

bool HeldGuards::Remove(std::uint64_t guard) noexcept {
    // From the last one down: guards are let go in the reverse order.
    for (unsigned i = m_size; i-- > 0;) {
        if (m_entries[i] == guard) {
            std::copy(m_entries + i + 1, m_entries + m_size, m_entries + i);
            --m_size;
            return true;
        }
    }
    // Most likely one that was pushed out.
    if (m_pushedOut > 0) {
        --m_pushedOut;
        return true;
    }
    return false;
}

int HeldGuards::Count(std::uint64_t guard) const noexcept {
    return static_cast<int>(std::count(m_entries, m_entries + m_size, guard));
}

}  // namespace zoerrlog::base
