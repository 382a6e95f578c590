#include <zoxlate/zoxlate.h>

#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

bool IsContinuation(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

// Bytes of the character that a first byte announces; 0 when no character begins with it.
std::size_t CharacterSize(char first) noexcept {
    const auto byte = static_cast<unsigned char>(first);
    if (byte < 0x80) {
        return 1;
    }
    if (byte < 0xC2 || byte > 0xF4) {
        return 0;
    }
    return byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

// The most bytes of a text, at most room, that do not end inside a character. Bytes that make no
// character are cut anywhere. The text is longer than room and is followed by an ASCII character.
std::size_t CutSize(const char* text, std::size_t room) noexcept {
    constexpr std::size_t maximumCharacterSize = 4;
    std::size_t first = room;
    while (first > 0 && IsContinuation(text[first]) && room - first < maximumCharacterSize - 1) {
        --first;
    }
    const std::size_t characterSize = CharacterSize(text[first]);
    if (characterSize <= room - first) {
        return room;
    }
    for (std::size_t i = 1; i < characterSize; ++i) {
        if (!IsContinuation(text[first + i])) {
            return room;
        }
    }
    return first;
}

template <std::size_t Size>
void CopyEnds(char* dst, const char* text, std::size_t size) noexcept {
    std::memcpy(dst, text, Size);
    std::memcpy(dst + size - Size, text + size - Size, Size);
}

// Most runs of a message are a word or two: copies of fixed sizes that overlap spare the call.
void CopyRun(char* dst, const char* text, std::size_t size) noexcept {
    if (size > 32) {
        std::memcpy(dst, text, size);
    } else if (size >= 16) {
        CopyEnds<16>(dst, text, size);
    } else if (size >= 8) {
        CopyEnds<8>(dst, text, size);
    } else if (size >= 4) {
        CopyEnds<4>(dst, text, size);
    } else if (size >= 2) {
        CopyEnds<2>(dst, text, size);
    } else if (size == 1) {
        *dst = *text;
    }
}

class BoundedText {
public:
    BoundedText(char* dst, std::size_t size) noexcept : m_end(dst), m_room(size - 1) {}

    // False when the text had to be cut; nothing may be appended then.
    bool Append(const char* text, std::size_t size) noexcept {
        const bool fits = size <= m_room;
        const std::size_t taken = fits ? size : CutSize(text, m_room);
        CopyRun(m_end, text, taken);
        m_end += taken;
        m_room -= taken;
        return fits;
    }

    void Terminate() noexcept { *m_end = '\0'; }

private:
    char* m_end;
    std::size_t m_room;
};

struct Placeholder {
    std::size_t index = 0;
    const char* end = nullptr;  // behind the closing brace; null when it is no placeholder
};

Placeholder ReadPlaceholder(const char* brace) noexcept {
    constexpr std::size_t limit = std::numeric_limits<std::size_t>::max() / 10 - 1;
    Placeholder placeholder;
    const char* digit = brace + 1;
    for (; *digit >= '0' && *digit <= '9'; ++digit) {
        if (placeholder.index > limit) {
            return {};
        }
        placeholder.index = placeholder.index * 10 + static_cast<std::size_t>(*digit - '0');
    }
    if (digit != brace + 1 && *digit == '}') {
        placeholder.end = digit + 1;
    }
    return placeholder;
}

// A bit in every byte of a word that is zero, and perhaps in zero bytes' more significant
// neighbours.
std::uint64_t ZeroBytes(std::uint64_t word) noexcept {
    return (word - 0x0101010101010101U) & ~word & 0x8080808080808080U;
}

// The next brace or quote, or the end. By words: most of a pattern is plain text.
const char* FindSpecial(const char* next, const char* end) noexcept {
    constexpr std::uint64_t braces = 0x0101010101010101U * '{';
    constexpr std::uint64_t quotes = 0x0101010101010101U * '\'';
    if constexpr (std::endian::native == std::endian::little) {
        for (std::uint64_t word = 0; end - next >= static_cast<std::ptrdiff_t>(sizeof word);
             next += sizeof word) {
            std::memcpy(&word, next, sizeof word);
            const std::uint64_t found = ZeroBytes(word ^ braces) | ZeroBytes(word ^ quotes);
            if (found != 0) {
                return next + std::countr_zero(found) / 8;
            }
        }
    }
    while (next != end && *next != '{' && *next != '\'') {
        ++next;
    }
    return next;
}

// Stops at the first part that does not fit.
class PatternFiller {
public:
    PatternFiller(BoundedText& text, std::size_t argCount, const char** args) noexcept
        : m_text(text), m_argCount(argCount), m_args(args) {}

    void Fill(const char* pattern) noexcept {
        const char* const end = pattern + std::strlen(pattern);
        const char* run = pattern;  // what was not appended yet
        const char* next = FindSpecial(pattern, end);
        while (next != end) {
            const char* const special = next++;
            if (*special == '\'') {
                if (!AppendRun(run, special)) {
                    return;
                }
                // The second of a pair begins the next run and so stays in the text.
                run = next;
                if (*next == '\'') {
                    ++next;
                } else {
                    m_quoted = !m_quoted;
                }
            } else if (const char* const behind = FindPlaceholderEnd(special)) {
                if (!AppendRun(run, special) || !AppendArgument()) {
                    return;
                }
                run = next = behind;
            }
            next = FindSpecial(next, end);
        }
        static_cast<void>(AppendRun(run, end));
    }

private:
    // Behind a placeholder that has an argument, which becomes the current one; otherwise null.
    const char* FindPlaceholderEnd(const char* brace) noexcept {
        if (m_quoted) {
            return nullptr;
        }
        const Placeholder placeholder = ReadPlaceholder(brace);
        if (placeholder.end == nullptr || placeholder.index >= m_argCount) {
            return nullptr;
        }
        m_argument = m_args[placeholder.index];
        return placeholder.end;
    }

    bool AppendRun(const char* run, const char* end) noexcept {
        return m_text.Append(run, static_cast<std::size_t>(end - run));
    }

    bool AppendArgument() noexcept {
        return m_argument == nullptr || m_text.Append(m_argument, std::strlen(m_argument));
    }

    BoundedText& m_text;
    const std::size_t m_argCount;
    const char** const m_args;
    const char* m_argument = nullptr;
    bool m_quoted = false;
};

}  // namespace

void CZoXlate::FormatMessageA(char* dst, unsigned long dstSize, const char* pattern,
                              std::size_t argCount, const char** args) {
    if (dst == nullptr || dstSize == 0) {
        return;
    }
    BoundedText text(dst, dstSize);
    if (pattern != nullptr) {
        PatternFiller(text, args == nullptr ? 0 : argCount, args).Fill(pattern);
    }
    text.Terminate();
}
