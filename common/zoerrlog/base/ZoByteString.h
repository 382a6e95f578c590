#ifndef ZOERRLOG_BASE_ZOBYTESTRING_H
#define ZOERRLOG_BASE_ZOBYTESTRING_H

#include <cstddef>
#include <cstring>
#include <string_view>

#include <zoerrlog/base/ZoExport.h>

/// Copies `text` to `dst` and returns what follows there.
__attribute__((noinline)) inline char* ZoCopyLong(char* dst, std::string_view text) noexcept {
    return static_cast<char*>(std::memcpy(dst, text.data(), text.size())) + text.size();
}

/// The same. Most parts of a line are a word or two, for which overlapping copies of fixed sizes
/// are cheaper than the C library's general one. Not inline: the code of a line is fetched anew
/// after every system call, and once is better than at each use.
__attribute__((noinline)) inline char* ZoCopyShort(char* dst, std::string_view text) noexcept {
    const std::size_t size = text.size();
    const char* const from = text.data();
    const auto ends = [&](auto word) {
        std::memcpy(dst, from, sizeof(word));
        std::memcpy(dst + size - sizeof(word), from + size - sizeof(word), sizeof(word));
        return dst + size;
    };
    struct Block {
        char bytes[16];
    };
    struct LargeBlock {
        char bytes[32];
    };
    if (size > 2 * sizeof(LargeBlock)) {
        return ZoCopyLong(dst, text);
    }
    if (size >= sizeof(LargeBlock)) {
        return ends(LargeBlock());
    }
    if (size >= sizeof(Block)) {
        return ends(Block());
    }
    if (size >= 8) {
        return ends(8LL);
    }
    if (size >= 4) {
        return ends(4);
    }
    if (size >= 2) {
        return ends(static_cast<short>(2));
    }
    if (size == 1) {
        *dst = *from;
    }
    return dst + size;
}

/// A growable string of bytes that always ends in a zero byte behind its last one.
///
/// Texts of up to kInlineCapacity bytes live inside the object, so that building a line of
/// ordinary length allocates nothing; longer ones move to the heap and stay there until
/// clear_and_shrink or the end of the object. Zero bytes are ordinary content.
///
/// Any operation that changes the text makes earlier pointers to it invalid. Memory exhaustion
/// while growing throws std::bad_alloc and leaves the text as it was. An object is used by one
/// thread at a time.
class ZOERRLOG_EXPORT ZoByteString {
public:
    /// Bytes of text that fit without an allocation.
    static constexpr std::size_t kInlineCapacity = 511;
    /// Bytes that are worth keeping between lines, however rarely they are needed.
    static constexpr std::size_t kKeptCapacity = std::size_t{64} * 1024;

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
    /// Bytes that can be appended without an allocation.
    std::size_t room() const noexcept { return m_capacity - m_size; }
    operator std::string_view() const noexcept { return {m_data, m_size}; }

    friend bool operator==(const ZoByteString& left, std::string_view right) noexcept {
        return std::string_view(left) == right;
    }
    friend bool operator!=(const ZoByteString& left, std::string_view right) noexcept {
        return !(left == right);
    }

    /// Empties the text; memory already taken is kept for the next one.
    void clear() noexcept { truncate(0); }

    /// The same, but gives back what a text of more than kKeptCapacity bytes took.
    void clear_and_shrink() noexcept {
        if (m_capacity > kKeptCapacity) {
            FreeHeap();
            m_data = m_inline;
            m_capacity = kInlineCapacity;
        }
        clear();
    }

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
        ZoCopyShort(prepare(text.size()), text);
        commit(text.size());
    }

    /// Appends the texts one after another; none may lie inside this string.
    template <typename... Texts>
    void append(std::string_view first, std::string_view second, const Texts&... more) {
        append_parts(first, second, std::string_view(more)...);
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
    template <typename... Views>
    void append_parts(const Views&... parts) {
        const std::size_t length = (parts.size() + ...);
        char* end = prepare(length);
        ((end = CopyPart(end, parts)), ...);
        commit(length);
    }

    // A length that the compiler knows takes one or two moves.
    static char* CopyPart(char* dst, std::string_view text) noexcept {
        if (__builtin_constant_p(text.size()) && text.size() <= 32) {
            std::memcpy(dst, text.data(), text.size());
            return dst + text.size();
        }
        return ZoCopyShort(dst, text);
    }

    void Grow(std::size_t length);
    void FreeHeap() noexcept;

    char* m_data;
    std::size_t m_size;
    std::size_t m_capacity;  // without the terminator
    char m_inline[kInlineCapacity + 1];
};

#endif
