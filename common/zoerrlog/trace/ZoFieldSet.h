#ifndef ZOERRLOG_TRACE_ZOFIELDSET_H
#define ZOERRLOG_TRACE_ZOFIELDSET_H

#include <cstdint>

#include <zoerrlog/trace/ZoKnownInfo.h>

/// A set of data fields, given by their numbers; a bit each, for a look at it on every line.
class ZoFieldSet {
public:
    /// False for numbers of kZoDataFieldCount and more.
    bool Has(unsigned int field) const noexcept {
        return field < kZoDataFieldCount &&
               (m_words[field / kBitsOfWord] >> field % kBitsOfWord & 1) != 0;
    }
    /// `field` is below kZoDataFieldCount.
    void Add(unsigned int field) noexcept {
        m_words[field / kBitsOfWord] |= std::uint64_t{1} << field % kBitsOfWord;
    }
    void Clear() noexcept { *this = ZoFieldSet(); }

private:
    static constexpr unsigned int kBitsOfWord = 64;
    std::uint64_t m_words[(kZoDataFieldCount + kBitsOfWord - 1) / kBitsOfWord] = {};
};

#endif
