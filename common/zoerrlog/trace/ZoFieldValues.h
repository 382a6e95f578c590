#ifndef ZOERRLOG_TRACE_ZOFIELDVALUES_H
#define ZOERRLOG_TRACE_ZOFIELDVALUES_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <zoerrlog/base/ZoByteString.h>
#include <zoerrlog/trace/ZoKnownInfo.h>

/// The values of one trace line: a text a data field, empty until it is set. They lie end to end
/// in one buffer, so that a line touches little memory and a record is small.
///
/// Field numbers are below kZoDataFieldCount. Values of ordinary length allocate nothing; long ones
/// may throw std::bad_alloc and leave the other values as they were. Views that were given out are
/// valid until the next Set or Clear.
class ZoFieldValues {
public:
    /// Stores a copy of `text`, which does not lie among the values.
    void Set(unsigned int field, std::string_view text);

    std::string_view Get(unsigned int field) const noexcept {
        const Place& place = m_places[field];
        return place.line == m_line ? std::string_view(m_texts.data() + place.offset, place.length)
                                    : std::string_view();
    }

    /// At least the length of all values together.
    std::size_t TotalLength() const noexcept { return m_texts.size(); }

    /// Empties all values, and gives back the memory that an unusually long one took.
    void Clear() noexcept;

private:
    /// Means something for the line that it was written for alone.
    struct Place {
        std::size_t offset;
        std::size_t length;
        std::uint64_t line;
    };

    void DropReplacedTexts();

    std::uint64_t m_line = 1;  // grows with every Clear
    Place m_places[kZoDataFieldCount] = {};
    std::size_t m_replaced = 0;  // bytes of m_texts that belong to no field any more
    ZoByteString m_texts;
};

#endif
