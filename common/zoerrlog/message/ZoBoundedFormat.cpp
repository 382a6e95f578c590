#include <zoerrlog/message/ZoBoundedFormat.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include <zoerrlog/message/ZoPlainFormat.h>

namespace zoerrlog::message {
namespace {

// What may stand between "%" and the conversion's letter.
enum PartOfConversion : unsigned char { kLetter = 0, kOption, kLengthModifier };

// By character.
constexpr auto kParts = [] {
    std::array<PartOfConversion, 256> parts{};
    for (const char option : std::string_view("0123456789$ #+-'I*.")) {
        parts[static_cast<unsigned char>(option)] = kOption;
    }
    for (const char modifier : std::string_view("hlqjzZtL")) {
        parts[static_cast<unsigned char>(modifier)] = kLengthModifier;
    }
    return parts;
}();

const char* Skip(const char* text, PartOfConversion part) {
    while (kParts[static_cast<unsigned char>(*text)] == part) {
        ++text;
    }
    return text;
}

struct Conversion {
    const char* options;  // behind the "%"
    const char* length;   // the length modifiers
    const char* letter;
};

Conversion ParseConversion(const char* percent) {
    const char* const options = percent + 1;
    const char* const length = Skip(options, kOption);
    return {options, length, Skip(length, kLengthModifier)};
}

enum class MemoryWrites { kNone, kAvoidable, kUnavoidable };

MemoryWrites FindMemoryWrites(const char* format) {
    MemoryWrites found = MemoryWrites::kNone;
    for (const char* percent = std::strchr(format, '%'); percent != nullptr;) {
        const Conversion conversion = ParseConversion(percent);
        if (*conversion.letter == 'n') {
            // A width or precision taken from the arguments has no place in the replacement.
            if (std::find(conversion.options, conversion.length, '*') != conversion.length) {
                return MemoryWrites::kUnavoidable;
            }
            found = MemoryWrites::kAvoidable;
        }
        const bool ended = *conversion.letter == '\0';
        percent = ended ? nullptr : std::strchr(conversion.letter + 1, '%');
    }
    return found;
}

// Turns every "%n" into a string of no characters, which takes the same pointer and looks at
// nothing behind it. Of the options only the argument's position ("%2$n") matters.
std::string WithoutMemoryWrites(const char* format) {
    std::string harmless;
    while (*format != '\0') {
        if (*format != '%') {
            harmless += *format++;
            continue;
        }
        const Conversion conversion = ParseConversion(format);
        const char* const next = conversion.letter + (*conversion.letter == '\0' ? 0 : 1);
        if (*conversion.letter == 'n') {
            const char* const dollar = std::find(conversion.options, conversion.length, '$');
            const bool positioned = dollar != conversion.length;
            harmless.append("%")
                .append(conversion.options, positioned ? dollar + 1 : conversion.options)
                .append(".0s");
        } else {
            harmless.append(format, next);
        }
        format = next;
    }
    return harmless;
}

int Format(char* dst, std::size_t size, const char* format, va_list args) {
    switch (FindMemoryWrites(format)) {
        case MemoryWrites::kNone:
            return std::vsnprintf(dst, size, format, args);
        case MemoryWrites::kAvoidable:
            return std::vsnprintf(dst, size, WithoutMemoryWrites(format).c_str(), args);
        case MemoryWrites::kUnavoidable:
            break;
    }
    return -1;
}

}  // namespace

int FormatBounded(char* dst, std::size_t size, const char* format, va_list args) {
    if (const int length = FormatPlain(dst, size, format, args); length >= 0) {
        return length;
    }
    dst[0] = '\0';
    const int length = Format(dst, size, format, args);
    if (length < 0) {
        dst[0] = '\0';
    }
    return length;
}

}  // namespace zoerrlog::message
