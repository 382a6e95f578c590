#ifndef ZOXLATE_STRIPE_H
#define ZOXLATE_STRIPE_H

#include <cstddef>
#include <cstdint>

namespace zoxlate {

// Counters that every log line changes exist once a stripe, so that threads seldom write to the
// same cache line.
inline constexpr std::size_t kStripeCount = 8;

// Two lines: common processors fetch them in pairs.
inline constexpr std::size_t kInterferenceSize = 128;

// The calling thread's stripe, told by where its stack is: there is no thread-local state to set up
// or to outlive the library. The same thread may get another one at another depth; a count goes
// down where it went up because its holder keeps the address.
inline std::size_t CurrentStripe() noexcept {
    const char here = 0;
    constexpr std::uintptr_t multiplier = 0x9E3779B1U;
    const std::uintptr_t stack = reinterpret_cast<std::uintptr_t>(&here) >> 16U;
    return ((stack * multiplier) >> 24U) % kStripeCount;
}

}  // namespace zoxlate

#endif
