#include <zoerrlog/message/ZoCatalogueEntry.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/message/ZoMessageId.h>
#include <zoerrlog/platform/Lifetime.h>

namespace zoerrlog::message {
namespace {

/// Slots by thread and message. A bundle that was replaced in the catalogue lives on in a slot
/// until the slot is used again, so there are few.
class CatalogueSlots {
public:
    CatalogueSlot& SlotFor(unsigned int id) noexcept {
        // Threads are told apart by their stacks, to within 64 KB: it need not be exact.
        constexpr unsigned kStackShift = 16;
        constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15U;  // 2^64 by the golden ratio
        const char here = 0;
        const auto thread = reinterpret_cast<std::uintptr_t>(&here) >> kStackShift;
        return m_slots[(thread ^ id) * kMultiplier >> kHashShift];
    }

private:
    static constexpr unsigned kSlotBits = 6;
    static constexpr unsigned kHashShift = 64 - kSlotBits;
    std::array<CatalogueSlot, std::size_t{1} << kSlotBits> m_slots;
};

CatalogueSlot& SlotFor(unsigned int id) {
    static platform::ProcessLasting<CatalogueSlots> slots;
    return slots.Get().SlotFor(id);
}

bool Matches(const CatalogueSlot& slot, const MessageName& name, int severity, const char* locale) {
    return slot.key == name.key && slot.bundleName == name.bundleName &&
           slot.severity == severity && slot.locale == locale && slot.bundle != nullptr &&
           slot.generation == CZoXlate::GetGeneration();
}

void FillHead(CatalogueSlot& slot) {
    ZoByteString head;
    head.append("[", SeverityWord(slot.severity), "]");
    slot.keyStart = static_cast<unsigned char>(head.size());
    head.append("[", slot.key, "] ");
    const bool fits = head.size() <= CatalogueSlot::kLongestHead;
    slot.headLength = static_cast<unsigned char>(fits ? head.size() : 0);
    std::copy_n(head.data(), slot.headLength, slot.head);
}

__attribute__((noinline)) void Fill(CatalogueSlot& slot, const MessageName& name, int severity,
                                    const char* locale) {
    // Asked before the look-up: if the catalogue changes in between, the slot is outdated.
    slot.generation = CZoXlate::GetGeneration();
    slot.severity = severity;
    slot.key = name.key;
    slot.bundleName = name.bundleName;
    slot.locale = locale;
    FillHead(slot);
    slot.pattern = FindPattern(name, locale, slot.bundle);
}

}  // namespace

MessageName FindMessageName(unsigned int id) {
    if (ComponentNumber(id) == kBuiltInComponent) {
        return {"zo-log-00000", nullptr, "{0}"};
    }
    const auto [key, bundleName] = theLogger()->FindMessage(id);
    if (bundleName == nullptr) {
        return {"zo-log-00001", nullptr, "missing component library"};
    }
    if (key == nullptr) {
        return {"zo-log-00002", nullptr, "missing message key"};
    }
    return {key, bundleName, ""};
}

const char* FindPattern(const MessageName& name, const char* locale, BundleHold& bundle) {
    bundle.reset();
    if (name.bundleName == nullptr) {
        return name.fixedPattern;
    }
    bundle.reset(CZoXlate::GetBundle(name.bundleName, locale));
    const char* const text = bundle != nullptr ? bundle->GetText(name.key) : nullptr;
    return text != nullptr ? text : name.key;
}

RememberedMessage::RememberedMessage(unsigned int id, int severity, const char* locale)
    : m_hold(SlotFor(id)), m_severity(severity), m_keyStart(0) {
    const MessageName name = FindMessageName(id);
    m_key = name.key;
    CatalogueSlot* const slot = m_hold.Get();
    if (slot == nullptr) {
        m_pattern = FindPattern(name, locale, m_bundle);
        return;
    }
    if (!Matches(*slot, name, severity, locale)) {
        Fill(*slot, name, severity, locale);
    }
    m_head = {slot->head, slot->headLength};
    m_keyStart = slot->keyStart;
    m_pattern = slot->pattern;
}

void RememberedMessage::AppendHead(ZoByteString& text) const {
    if (m_head.empty()) {
        text.append("[", SeverityWord(m_severity), "][", m_key, "] ");
    } else {
        text.append(m_head);
    }
}

void RememberedMessage::AppendKey(ZoByteString& text) const {
    if (m_head.empty()) {
        text.append("[", m_key, "] ");
    } else {
        text.append(m_head.substr(m_keyStart));
    }
}

}  // namespace zoerrlog::message
