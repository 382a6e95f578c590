#ifndef ZOERRLOG_BASE_ZOBYTESTRING_H
#define ZOERRLOG_BASE_ZOBYTESTRING_H

#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <string_view>

#include <zoerrlog/base/ZoExport.h>

/// A growable string of bytes that always ends in a zero byte behind its last one.
///
/// Texts of up to kInlineCapacity bytes live inside the object, so that building a line of
/// ordinary length allocates nothing; longer ones move to the heap and stay there until the
/// object is destroyed. Zero bytes are ordinary content.
///
/// Any operation that changes the text makes earlier pointers to it invalid. Memory exhaustion
/// while growing throws std::bad_alloc and leaves the text as it was. An object is used by one
/// thread at a time.
class ZOERRLOG_EXPORT ZoByteString {
public:
    /// Bytes of text that fit without an allocation.
    static constexpr std::size_t kInlineCapacity = 511;

    ZoByteString() noexcept : m_data(m_inline), m_size(0), m_capacity(kInlineCapacity) {
        m_inline[0] = '\0';
    }
    explicit ZoByteString(std::string_view text) : ZoByteString() { append(text); }
    ZoByteString(const ZoByteString& other) : ZoByteString() { append(other); }
    ZoByteString& operator=(const ZoByteString& other) {
        if (this != &other) {
            assign(other);
        }
        return *this;
    }
    ~ZoByteString() {
        if (m_data != m_inline) {
            FreeHeap();
        }
    }

    const char* data() const noexcept { return m_data; }
    const char* c_str() const noexcept { return m_data; }
    std::size_t size() const noexcept { return m_size; }
    bool empty() const noexcept { return m_size == 0; }
    operator std::string_view() const noexcept { return {m_data, m_size}; }

    friend bool operator==(const ZoByteString& left, std::string_view right) noexcept {
        return std::string_view(left) == right;
    }
    friend bool operator!=(const ZoByteString& left, std::string_view right) noexcept {
        return !(left == right);
    }

    /// Empties the text; memory already taken is kept for the next one.
    void clear() noexcept { truncate(0); }

    /// Cuts the text to its first `size` bytes; `size` must not exceed size().
    void truncate(std::size_t size) noexcept {
        m_size = size;
        m_data[size] = '\0';
    }

    /// Replaces the text; `text` must not lie inside this string.
    void assign(std::string_view text) {
        clear();
        append(text);
    }

    /// Appends `text`, which must not lie inside this string.
    void append(std::string_view text) {
        char* end = prepare(text.size());
        if (!text.empty()) {
            std::memcpy(end, text.data(), text.size());
        }
        commit(text.size());
    }

    /// Appends the parts one after another; none may lie inside this string.
    void append(std::initializer_list<std::string_view> parts) {
        std::size_t length = 0;
        for (const std::string_view part : parts) {
            length += part.size();
        }
        char* end = prepare(length);
        for (const std::string_view part : parts) {
            if (!part.empty()) {
                std::memcpy(end, part.data(), part.size());
                end += part.size();
            }
        }
        commit(length);
    }

    void push_back(char byte) {
        *prepare(1) = byte;
        commit(1);
    }

    /// Makes room for `length` more bytes and a terminator and returns where they go. The text
    /// itself is unchanged until commit().
    char* prepare(std::size_t length) {
        if (length > m_capacity - m_size) {
            Grow(length);
        }
        return m_data + m_size;
    }

    /// Makes `length` bytes written behind a prepare() of at least that length part of the text.
    void commit(std::size_t length) noexcept { truncate(m_size + length); }

private:
    void Grow(std::size_t length);
    void FreeHeap() noexcept;

    char* m_data;
    std::size_t m_size;
    std::size_t m_capacity;  // without the terminator
    char m_inline[kInlineCapacity + 1];
};

#endif
