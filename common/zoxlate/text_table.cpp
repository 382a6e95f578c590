#include <zoxlate/text_hash.h>
#include <zoxlate/text_table.h>

#include <bit>
#include <limits>
#include <new>

namespace zoxlate {

TextTable::TextTable(const TextMap& texts)
    : m_slots(std::bit_ceil(2 * texts.size() + 1)), m_characters(1, '\0') {
    const std::size_t mask = m_slots.size() - 1;
    for (const auto& [key, text] : texts) {
        const std::uint64_t hash = HashText(key, 0);
        std::size_t position = hash & mask;
        while (m_slots[position].keyOffset != 0) {
            position = (position + 1) & mask;
        }
        Slot& slot = m_slots[position];
        slot.hash = static_cast<std::uint32_t>(hash);
        slot.keySize = static_cast<std::uint32_t>(key.size());
        slot.keyOffset = Append(key);
        slot.textOffset = Append(text);
    }
    m_characters.shrink_to_fit();
}

std::uint32_t TextTable::Append(std::string_view text) {
    const std::size_t offset = m_characters.size();
    if (text.size() >= std::numeric_limits<std::uint32_t>::max() - offset) {
        throw std::bad_alloc();
    }
    m_characters.append(text);
    m_characters.push_back('\0');
    return static_cast<std::uint32_t>(offset);
}

const char* TextTable::Find(std::string_view key) const noexcept {
    const std::uint64_t hash = HashText(key, 0);
    const std::size_t mask = m_slots.size() - 1;
    const char* const characters = m_characters.data();
    for (std::size_t position = hash & mask;; position = (position + 1) & mask) {
        const Slot& slot = m_slots[position];
        if (slot.keyOffset == 0) {
            return nullptr;
        }
        if (slot.hash == static_cast<std::uint32_t>(hash) &&
            SameText(key, std::string_view(characters + slot.keyOffset, slot.keySize))) {
            return characters + slot.textOffset;
        }
    }
}

}  // namespace zoxlate
