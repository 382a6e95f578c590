#ifndef ZOXLATE_TEXT_TABLE_H
#define ZOXLATE_TEXT_TABLE_H

#include <zoxlate/properties.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zoxlate {

// The texts of one bundle in one locale, never changed once made: an open-addressing table over one
// block of characters, so that a look-up touches few cache lines.
class TextTable {
public:
    explicit TextTable(const TextMap& texts);

    // Null when there is no such key.
    [[nodiscard]] const char* Find(std::string_view key) const noexcept;

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t keySize = 0;
        std::uint32_t keyOffset = 0;  // 0: a free slot, since the block begins with a spare byte
        std::uint32_t textOffset = 0;
    };

    std::uint32_t Append(std::string_view text);

    std::vector<Slot> m_slots;  // a power of two, at most half of it used
    std::string m_characters;
};

}  // namespace zoxlate

#endif
