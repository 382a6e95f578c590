#include <zoxlate/zoxlate.h>

#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>

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
[[gnu::noinline, gnu::cold]] std::size_t CutSize(const char* text, std::size_t room) noexcept {
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

struct Placeholder {
    std::size_t index = 0;
    const char* end = nullptr;  // behind the closing brace; null when it is no placeholder
};

[[gnu::noinline]] Placeholder ReadPlaceholder(const char* brace) noexcept {
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

std::string_view TextOf(const char* text) noexcept {
    return text == nullptr ? std::string_view() : text;
}

std::string_view TextOf(const CZoXlate::Text& text) noexcept {
    return {text.data, text.size};
}

// Writes a pattern with its arguments into a buffer. Stops at the first part that does not fit.
template <class Argument>
class PatternFiller {
public:
    PatternFiller(char* dst, std::size_t size, std::size_t argCount, const Argument* args) noexcept
        : m_out(dst),
          m_limit(dst + size - 1),
          m_argCount(args == nullptr ? 0 : argCount),
          m_args(args) {}

    // Gives the end of the text, where the terminator is.
    const char* Fill(std::string_view pattern) noexcept {
        const char* const end = pattern.data() + pattern.size();
        const char* next = pattern.data();
        BeginRun(next);
        // One place that copies plain text: a shorter loop is fetched sooner.
        while ((next = CopyPlain(next, end)) != end) {
            if (*next == '\'') {
                // The second of a pair begins the next run and so stays in the text.
                BeginRun(++next);
                if (*next == '\'') {
                    next = CopySpecial(next, end);
                } else {
                    m_quoted = !m_quoted;
                }
            } else if (const Placeholder placeholder = PlaceholderAt(next); placeholder.end) {
                if (!AppendArgument(TextOf(m_args[placeholder.index]))) {
                    break;
                }
                next = placeholder.end;
                BeginRun(next);
            } else {
                next = CopySpecial(next, end);
            }
        }
        *m_out = '\0';
        return m_out;
    }

private:
    void BeginRun(const char* run) noexcept {
        m_run = run;
        m_runOut = m_out;
    }

    // Copies up to the next brace or quote, or to the end, and returns where that is. By words:
    // most of a pattern is plain text. What a word holds behind the text is overwritten later.
    const char* CopyPlain(const char* next, const char* end) noexcept {
        constexpr std::uint64_t braces = 0x0101010101010101U * '{';
        constexpr std::uint64_t quotes = 0x0101010101010101U * '\'';
        constexpr std::ptrdiff_t size = sizeof(std::uint64_t);
        if constexpr (std::endian::native == std::endian::little) {
            while (end - next >= size && m_limit - m_out >= size) {
                std::uint64_t word = 0;
                std::memcpy(&word, next, size);
                std::memcpy(m_out, &word, size);
                const std::uint64_t found = ZeroBytes(word ^ braces) | ZeroBytes(word ^ quotes);
                const int plain = found != 0 ? std::countr_zero(found) / 8 : static_cast<int>(size);
                next += plain;
                m_out += plain;
                if (found != 0) {
                    return next;
                }
            }
        }
        while (next != end && *next != '{' && *next != '\'') {
            if (m_out == m_limit) {
                return CutRun(end);
            }
            *m_out++ = *next++;
        }
        return next;
    }

    // Copies the character at `next`, which stands for itself.
    const char* CopySpecial(const char* next, const char* end) noexcept {
        if (m_out == m_limit) {
            return CutRun(end);
        }
        *m_out++ = *next;
        return next + 1;
    }

    // The run does not fit: nothing comes behind its cut.
    const char* CutRun(const char* end) noexcept {
        m_out = m_runOut + CutSize(m_run, static_cast<std::size_t>(m_limit - m_runOut));
        return end;
    }

    // No placeholder where there is no argument for it.
    Placeholder PlaceholderAt(const char* brace) const noexcept {
        if (m_quoted) {
            return {};
        }
        // Few messages have more than ten arguments.
        const auto digit = static_cast<std::size_t>(brace[1] - '0');
        const Placeholder placeholder =
            digit < 10 && brace[2] == '}' ? Placeholder{digit, brace + 3} : ReadPlaceholder(brace);
        return placeholder.index < m_argCount ? placeholder : Placeholder();
    }

    bool AppendArgument(std::string_view argument) noexcept {
        const auto room = static_cast<std::size_t>(m_limit - m_out);
        const bool fits = argument.size() <= room;
        const std::size_t taken = fits ? argument.size() : CutSize(argument.data(), room);
        CopyRun(m_out, argument.data(), taken);
        m_out += taken;
        return fits;
    }

    char* m_out;
    char* const m_limit;  // where the terminator is at the latest
    const std::size_t m_argCount;
    const Argument* const m_args;
    const char* m_run = nullptr;  // what is being copied of the pattern, for a cut
    char* m_runOut = nullptr;     // and where it went
    bool m_quoted = false;
};

}  // namespace

void CZoXlate::FormatMessageA(char* dst, unsigned long dstSize, const char* pattern,
                              std::size_t argCount, const char** args) {
    if (dst == nullptr || dstSize == 0) {
        return;
    }
    PatternFiller<const char*>(dst, dstSize, argCount, args)
        .Fill(pattern == nullptr ? "" : pattern);
}

std::size_t CZoXlate::FormatText(char* dst, std::size_t dstSize, const Text& pattern,
                                 std::size_t argCount, const Text* args) {
    if (dst == nullptr || dstSize == 0) {
        return 0;
    }
    PatternFiller<Text> filler(dst, dstSize, argCount, args);
    return static_cast<std::size_t>(filler.Fill(TextOf(pattern)) - dst);
}
