#include <zoi18n/zoi18n.h>

#include <array>
#include <atomic>
#include <cstring>
#include <string_view>

namespace {

constexpr std::size_t kMaximumLength = 31;
constexpr std::size_t kSlotCount = 64;
constexpr char kDefaultLocale[] = "en";

enum class SlotState : unsigned char { kFree, kBeingWritten, kReady };

// A slot goes through its states once and is never given back, which is what keeps every pointer
// handed out valid. A slot that another thread was writing when the process forked stays unused
// in the child; nobody waits for it.
struct Slot {
    std::atomic<SlotState> state{SlotState::kFree};
    std::array<char, kMaximumLength + 1> text{};
};

// Neither is ever destroyed: a thread may still ask while the process exits.
constinit std::array<Slot, kSlotCount> g_slots{};
constinit std::atomic<const char*> g_current{kDefaultLocale};

bool IsValid(std::string_view locale) noexcept {
    constexpr std::string_view allowed =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_-.@";
    return !locale.empty() && locale.size() <= kMaximumLength &&
           locale.find_first_not_of(allowed) == std::string_view::npos;
}

const char* FindKnown(std::string_view locale) noexcept {
    if (locale == kDefaultLocale) {
        return kDefaultLocale;
    }
    for (const Slot& slot : g_slots) {
        if (slot.state.load(std::memory_order_acquire) == SlotState::kReady &&
            locale == slot.text.data()) {
            return slot.text.data();
        }
    }
    return nullptr;
}

const char* AddNew(std::string_view locale) noexcept {
    for (Slot& slot : g_slots) {
        SlotState expected = SlotState::kFree;
        if (slot.state.compare_exchange_strong(expected, SlotState::kBeingWritten,
                                               std::memory_order_relaxed)) {
            locale.copy(slot.text.data(), locale.size());
            slot.state.store(SlotState::kReady, std::memory_order_release);
            return slot.text.data();
        }
    }
    return nullptr;
}

}  // namespace

const char* ZoGetAdminLocale() {
    return g_current.load(std::memory_order_acquire);
}

bool ZoSetAdminLocale(const char* locale) {
    if (locale == nullptr) {
        return false;
    }
    const std::string_view wanted(locale, ::strnlen(locale, kMaximumLength + 1));
    if (!IsValid(wanted)) {
        return false;
    }
    const char* interned = FindKnown(wanted);
    if (interned == nullptr) {
        interned = AddNew(wanted);
    }
    if (interned == nullptr) {
        return false;
    }
    g_current.store(interned, std::memory_order_release);
    return true;
}
