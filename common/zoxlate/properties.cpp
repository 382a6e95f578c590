#include <zoxlate/properties.h>

#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace zoxlate {

namespace {

constexpr std::string_view kWhiteSpace = " \t\f";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::uint32_t kReplacementCharacter = 0xFFFD;

std::string_view TrimLeft(std::string_view text) noexcept {
    const std::size_t begin = text.find_first_not_of(kWhiteSpace);
    return begin == std::string_view::npos ? std::string_view() : text.substr(begin);
}

bool EndsInContinuation(std::string_view line) noexcept {
    const std::size_t last = line.find_last_not_of('\\');
    const std::size_t backslashes =
        last == std::string_view::npos ? line.size() : line.size() - last - 1;
    return backslashes % 2 == 1;
}

class LineReader {
public:
    explicit LineReader(std::string_view content) : m_rest(content) {
        if (m_rest.starts_with(kByteOrderMark)) {
            m_rest.remove_prefix(kByteOrderMark.size());
        }
    }

    // The next definition, continuation lines joined; false at the end.
    bool NextDefinition(std::string& definition) {
        definition.clear();
        while (definition.empty() && !m_rest.empty()) {
            std::string_view line = TrimLeft(NextLine());
            if (line.starts_with('#') || line.starts_with('!')) {
                continue;
            }
            while (EndsInContinuation(line)) {
                line.remove_suffix(1);
                definition.append(line);
                line = TrimLeft(NextLine());
            }
            definition.append(line);
        }
        return !definition.empty();
    }

private:
    std::string_view NextLine() noexcept {
        const std::size_t end = m_rest.find_first_of("\r\n");
        const std::string_view line = m_rest.substr(0, end);
        if (end == std::string_view::npos) {
            m_rest = {};
        } else {
            m_rest.remove_prefix(m_rest.substr(end).starts_with("\r\n") ? end + 2 : end + 1);
        }
        return line;
    }

    std::string_view m_rest;
};

void AppendUtf8(std::string& text, std::uint32_t character) {
    const auto continuation = [&](unsigned shift) {
        text.push_back(static_cast<char>(0x80U | ((character >> shift) & 0x3FU)));
    };
    if (character < 0x80) {
        text.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        text.push_back(static_cast<char>(0xC0U | (character >> 6U)));
        continuation(0);
    } else if (character < 0x10000) {
        text.push_back(static_cast<char>(0xE0U | (character >> 12U)));
        continuation(6);
        continuation(0);
    } else {
        text.push_back(static_cast<char>(0xF0U | (character >> 18U)));
        continuation(12);
        continuation(6);
        continuation(0);
    }
}

// The code unit of "\uXXXX" at the start of text.
std::optional<std::uint32_t> CodeUnit(std::string_view text) noexcept {
    constexpr std::size_t escapeSize = 6;
    if (text.size() < escapeSize || !text.starts_with("\\u")) {
        return std::nullopt;
    }
    std::uint32_t unit = 0;
    const char* const end = text.data() + escapeSize;
    const auto [parsed, error] = std::from_chars(text.data() + 2, end, unit, 16);
    return error == std::errc() && parsed == end ? std::optional(unit) : std::nullopt;
}

bool IsHighSurrogate(std::uint32_t unit) noexcept {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(std::uint32_t unit) noexcept {
    return unit >= 0xDC00 && unit < 0xE000;
}

// Takes one escape, or two that make a pair of surrogates, off the start of rest.
void TakeUnicodeEscape(std::string_view& rest, std::string& text) {
    const std::optional<std::uint32_t> unit = CodeUnit(rest);
    if (!unit) {
        text.append("\\u");
        rest.remove_prefix(2);
        return;
    }
    rest.remove_prefix(6);
    const std::optional<std::uint32_t> next = CodeUnit(rest);
    if (IsHighSurrogate(*unit) && next && IsLowSurrogate(*next)) {
        rest.remove_prefix(6);
        AppendUtf8(text, 0x10000 + ((*unit - 0xD800) << 10U) + (*next - 0xDC00));
    } else if (IsHighSurrogate(*unit) || IsLowSurrogate(*unit)) {
        AppendUtf8(text, kReplacementCharacter);
    } else {
        AppendUtf8(text, *unit);
    }
}

char EscapedCharacter(char escape) noexcept {
    switch (escape) {
        case 't':
            return '\t';
        case 'n':
            return '\n';
        case 'r':
            return '\r';
        case 'f':
            return '\f';
        default:
            return escape;
    }
}

std::string Unescape(std::string_view rest) {
    std::string text;
    text.reserve(rest.size());
    while (!rest.empty()) {
        const std::string_view plain = rest.substr(0, rest.find('\\'));
        text.append(plain);
        rest.remove_prefix(plain.size());
        if (rest.starts_with("\\u")) {
            TakeUnicodeEscape(rest, text);
        } else if (rest.size() >= 2) {
            text.push_back(EscapedCharacter(rest[1]));
            rest.remove_prefix(2);
        } else {
            rest = {};
        }
    }
    return text;
}

// Position of the first separator that no backslash precedes.
std::size_t KeySize(std::string_view definition) noexcept {
    std::size_t size = 0;
    while (size < definition.size()) {
        const char c = definition[size];
        if (c == '=' || c == ':' || kWhiteSpace.find(c) != std::string_view::npos) {
            return size;
        }
        size += c == '\\' ? 2 : 1;
    }
    return definition.size();
}

}  // namespace

void ParseProperties(std::string_view content, TextMap& texts) {
    LineReader lines(content);
    std::string definition;
    while (lines.NextDefinition(definition)) {
        const std::string_view view = definition;
        const std::size_t keySize = KeySize(view);
        std::string_view value = TrimLeft(view.substr(keySize));
        if (value.starts_with('=') || value.starts_with(':')) {
            value = TrimLeft(value.substr(1));
        }
        texts.insert_or_assign(Unescape(view.substr(0, keySize)), Unescape(value));
    }
}

}  // namespace zoxlate
