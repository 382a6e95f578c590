#ifndef ZOERRLOG_MESSAGE_ZOARGLIST_H
#define ZOERRLOG_MESSAGE_ZOARGLIST_H

#include <string>
#include <string_view>

#include <zoerrlog/base/ZoByteString.h>
#include <zoerrlog/base/ZoExport.h>

/// The value that is streamed into an argument list: a text with its length. It keeps its own
/// copy; zero bytes are part of it. A null pointer gives the empty text.
class CpaStream {
public:
    CpaStream(const char* text)
        : m_text(text != nullptr ? std::string_view(text) : std::string_view()) {}
    CpaStream(const std::string& text) : m_text(text) {}
    CpaStream(std::string_view text) : m_text(text) {}

    std::string_view view() const noexcept { return m_text; }

private:
    ZoByteString m_text;
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
    /// Beyond MAX_ARGC arguments a value is dropped without notice. Returns the list.
    CpaArgList& operator<<(const CpaStream& value);

    /// Writes one pointer per argument into `argv`, which has room for argc pointers, and returns
    /// argc. The pointers stay valid until the list changes or is destroyed.
    unsigned long long toArgv(const char** argv) const;
};

#endif
