#ifndef ZOXLATE_TEXT_HASH_H
#define ZOXLATE_TEXT_HASH_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace zoxlate {

template <class Word>
Word LoadWord(const char* bytes) noexcept {
    Word word;
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

inline std::uint64_t MixWord(std::uint64_t hash, std::uint64_t word) noexcept {
    constexpr std::uint64_t multiplier = 0x9E3779B97F4A7C15U;  // 2^64 divided by the golden ratio
    hash = (hash ^ word) * multiplier;
    return hash ^ (hash >> 32U);
}

// Three names are hashed for every log line, so this goes by words and not by bytes. The last word
// overlaps the one before it.
inline std::uint64_t HashText(std::string_view text, std::uint64_t seed) noexcept {
    const char* bytes = text.data();
    const std::size_t size = text.size();
    std::uint64_t hash = seed ^ (static_cast<std::uint64_t>(size) << 56U);
    if (size >= sizeof(std::uint64_t)) {
        const char* const last = bytes + size - sizeof(std::uint64_t);
        for (; bytes < last; bytes += sizeof(std::uint64_t)) {
            hash = MixWord(hash, LoadWord<std::uint64_t>(bytes));
        }
        return MixWord(hash, LoadWord<std::uint64_t>(last));
    }
    if (size >= sizeof(std::uint32_t)) {
        const std::uint64_t high = LoadWord<std::uint32_t>(bytes + size - sizeof(std::uint32_t));
        return MixWord(hash, LoadWord<std::uint32_t>(bytes) | (high << 32U));
    }
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < size; ++i) {
        word = (word << 8U) | static_cast<unsigned char>(bytes[i]);
    }
    return MixWord(hash, word);
}

template <class Word>
bool SameEnds(const char* a, const char* b, std::size_t size) noexcept {
    const std::size_t last = size - sizeof(Word);
    return LoadWord<Word>(a) == LoadWord<Word>(b) &&
           LoadWord<Word>(a + last) == LoadWord<Word>(b + last);
}

// For names of the usual length without the call that a comparison of string views makes.
inline bool SameText(std::string_view a, std::string_view b) noexcept {
    const std::size_t size = a.size();
    if (size != b.size()) {
        return false;
    }
    if (size > 2 * sizeof(std::uint64_t)) {
        return std::memcmp(a.data(), b.data(), size) == 0;
    }
    if (size >= sizeof(std::uint64_t)) {
        return SameEnds<std::uint64_t>(a.data(), b.data(), size);
    }
    if (size >= sizeof(std::uint32_t)) {
        return SameEnds<std::uint32_t>(a.data(), b.data(), size);
    }
    if (size >= sizeof(std::uint16_t)) {
        return SameEnds<std::uint16_t>(a.data(), b.data(), size);
    }
    return size == 0 || a[0] == b[0];
}

}  // namespace zoxlate

#endif
