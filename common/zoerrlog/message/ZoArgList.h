#ifndef ZOERRLOG_MESSAGE_ZOARGLIST_H
#define ZOERRLOG_MESSAGE_ZOARGLIST_H

#include <string>
#include <string_view>

#include <zoerrlog/base/ZoByteString.h>
#include <zoerrlog/base/ZoExport.h>

/// The value that is streamed into an argument list: a text with its length. It is a view of the
/// text, which must last until the list has taken its copy. Zero bytes are part of it. A null
/// pointer gives the empty text.
class CpaStream {
public:
    CpaStream(const char* text)
        : m_text(text != nullptr ? std::string_view(text) : std::string_view()),
          m_mayHoldZeros(false) {}
    CpaStream(const std::string& text) : m_text(text), m_mayHoldZeros(true) {}
    CpaStream(std::string_view text) : m_text(text), m_mayHoldZeros(true) {}

    std::string_view view() const noexcept { return m_text; }
    /// False when the text was given as a C string.
    bool may_hold_zeros() const noexcept { return m_mayHoldZeros; }

private:
    std::string_view m_text;
    bool m_mayHoldZeros;
};

/// The insertion arguments of a message: up to MAX_ARGC texts, each followed by a zero byte.
struct ZOERRLOG_EXPORT CpaArgList {
    /// The number of arguments that a list can hold.
    static const int MAX_ARGC = 13;

    /// Arguments held, 0 to MAX_ARGC.
    unsigned long long argc = 0;
    /// The arguments end to end, each followed by a zero byte.
    ZoByteString args;

    /// Removes all arguments; returns the list.
    CpaArgList& clear();

    /// Appends `value` as the next argument; a value with zero bytes inside counts as several.
    /// Beyond MAX_ARGC arguments a value is dropped without notice. `value` must not lie in the
    /// list itself. Returns the list.
    CpaArgList& operator<<(const CpaStream& value);

    /// Writes one pointer per argument into `argv`, which has room for argc pointers, and returns
    /// argc. The pointers stay valid until the list changes or is destroyed.
    unsigned long long toArgv(const char** argv) const;

    /// Argument `i`, which is below argc; valid as long.
    std::string_view argument(unsigned long long i) const {
        return {args.data() + m_places[i].start, m_places[i].length};
    }

private:
    /// Where an argument lies in args.
    struct Place {
        std::size_t start;
        std::size_t length;
    };
    void SplitAtZeros(std::string_view text);

    Place m_places[MAX_ARGC];
};

#endif
