#include <zoerrlog/base/ZoHeldGuards.h>

#include <algorithm>
#include <iterator>

namespace zoerrlog::base {
namespace {

struct Stack {
    std::uint64_t entries[HeldGuards::kCapacity] = {};
    unsigned size = 0;
    unsigned pushedOut = 0;
};

thread_local Stack t_held;

}  // namespace

void HeldGuards::Add(std::uint64_t guard) noexcept {
    Stack& held = t_held;
    if (held.size == kCapacity) {
        std::copy(std::next(held.entries), std::end(held.entries), held.entries);
        --held.size;
        ++held.pushedOut;
    }
    held.entries[held.size++] = guard;
}

bool HeldGuards::Remove(std::uint64_t guard) noexcept {
    Stack& held = t_held;
    // Nearly always the last one: guards are let go in the reverse order.
    if (held.size > 0 && held.entries[held.size - 1] == guard) {
        --held.size;
        return true;
    }
    for (unsigned i = held.size; i-- > 0;) {
        if (held.entries[i] == guard) {
            std::copy(held.entries + i + 1, held.entries + held.size, held.entries + i);
            --held.size;
            return true;
        }
    }
    // Most likely one that was pushed out.
    if (held.pushedOut > 0) {
        --held.pushedOut;
        return true;
    }
    return false;
}

int HeldGuards::Count(std::uint64_t guard) noexcept {
    const Stack& held = t_held;
    return static_cast<int>(std::count(held.entries, held.entries + held.size, guard));
}

}  // namespace zoerrlog::base
