#include <zoerrlog/message/ZoPlainFormat.h>

#include <charconv>
#include <iterator>
#include <limits>
#include <string_view>

#include <zoerrlog/base/ZoByteString.h>

namespace zoerrlog::message {
namespace {

constexpr int kDecimal = 10;
constexpr int kHexadecimal = 16;

/// A buffer that takes what fits and counts the rest.
class BoundedText {
public:
    BoundedText(char* dst, std::size_t size) : m_next(dst), m_room(size - 1), m_length(0) {}

    void Append(std::string_view text) {
        m_length += text.size();
        const std::string_view fitting = text.substr(0, m_room);
        m_next = ZoCopyShort(m_next, fitting);
        m_room -= fitting.size();
    }

    template <int base, typename Number>
    void AppendNumber(Number number) {
        // Of either base, and a sign.
        char digits[std::numeric_limits<Number>::digits10 + 2];
        const char* const end = std::to_chars(digits, std::end(digits), number, base).ptr;
        Append({digits, static_cast<std::size_t>(end - digits)});
    }

    void Terminate() { *m_next = '\0'; }
    std::size_t Length() const { return m_length; }

private:
    char* m_next;
    std::size_t m_room;
    std::size_t m_length;
};

enum class Width { kInt, kLong, kLongLong, kSize };

// Moves `format` behind the length modifiers.
Width TakeWidth(const char*& format) {
    if (*format == 'z') {
        ++format;
        return Width::kSize;
    }
    if (*format != 'l') {
        return Width::kInt;
    }
    ++format;
    if (*format != 'l') {
        return Width::kLong;
    }
    ++format;
    return Width::kLongLong;
}

long long TakeSigned(Width width, va_list* args) {
    if (width == Width::kInt) {
        return va_arg(*args, int);
    }
    if (width == Width::kLong) {
        return va_arg(*args, long);
    }
    return width == Width::kLongLong ? va_arg(*args, long long) : va_arg(*args, std::ptrdiff_t);
}

unsigned long long TakeUnsigned(Width width, va_list* args) {
    if (width == Width::kInt) {
        return va_arg(*args, unsigned int);
    }
    if (width == Width::kLong) {
        return va_arg(*args, unsigned long);
    }
    return width == Width::kLongLong ? va_arg(*args, unsigned long long)
                                     : va_arg(*args, std::size_t);
}

// The conversions that take no length modifier.
bool AppendText(BoundedText& text, char letter, va_list* args) {
    switch (letter) {
        case 's': {
            const char* const value = va_arg(*args, const char*);
            if (value != nullptr) {
                text.Append(value);
            }
            return value != nullptr;
        }
        case 'c': {
            const char value = static_cast<char>(va_arg(*args, int));
            text.Append({&value, 1});
            return true;
        }
        case '%':
            text.Append("%");
            return true;
        default:
            return false;
    }
}

bool AppendConversion(BoundedText& text, const char*& format, va_list* args) {
    const Width width = TakeWidth(format);
    const char letter = *format++;
    switch (letter) {
        case 'd':
        case 'i':
            text.AppendNumber<kDecimal>(TakeSigned(width, args));
            return true;
        case 'u':
            text.AppendNumber<kDecimal>(TakeUnsigned(width, args));
            return true;
        case 'x':
            text.AppendNumber<kHexadecimal>(TakeUnsigned(width, args));
            return true;
        default:
            return width == Width::kInt && AppendText(text, letter, args);
    }
}

}  // namespace

int FormatPlain(char* dst, std::size_t size, const char* format, va_list args) noexcept {
    BoundedText text(dst, size);
    va_list rest;
    va_copy(rest, args);
    bool plain = true;
    while (plain && *format != '\0') {
        const char* const start = format;
        while (*format != '\0' && *format != '%') {
            ++format;
        }
        text.Append({start, static_cast<std::size_t>(format - start)});
        if (*format == '%') {
            ++format;
            plain = AppendConversion(text, format, &rest);
        }
    }
    va_end(rest);
    text.Terminate();
    const bool countable = text.Length() <= std::numeric_limits<int>::max();
    return plain && countable ? static_cast<int>(text.Length()) : -1;
}

}  // namespace zoerrlog::message
