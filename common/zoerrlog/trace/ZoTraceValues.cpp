#include <algorithm>
#include <charconv>
#include <cstring>
#include <iterator>
#include <limits>

#include <zoerrlog/platform/Process.h>
#include <zoerrlog/trace/ZoClockTexts.h>
#include <zoerrlog/trace/ZoFilterOperator.h>
#include <zoerrlog/trace/ZoTraceData.h>

using namespace zoerrlog;
using namespace zoerrlog::trace;

namespace {

constexpr std::size_t kLongestInlineValue = kZoInlineValueSize - 1;
constexpr int kDecimals = 6;
// Sign, the digits of the largest number, point and decimals.
constexpr std::size_t kLongestDouble =
    1 + std::numeric_limits<double>::max_exponent10 + 1 + 1 + kDecimals;

/// An integer in decimal.
template <typename Number>
class Decimal {
public:
    explicit Decimal(Number value)
        : m_length(static_cast<std::size_t>(std::to_chars(m_text, std::end(m_text), value).ptr -
                                            m_text)) {}

    operator std::string_view() const { return {m_text, m_length}; }

private:
    char m_text[std::numeric_limits<Number>::digits10 + 2];
    std::size_t m_length;
};

bool Passes(std::string_view value, unsigned int filterOperator, std::string_view filterValue) {
    switch (filterOperator) {
        case kEquals:
            return value == filterValue;
        case kDiffers:
            return value != filterValue;
        case kContains:
            return value.find(filterValue) != std::string_view::npos;
        case kLacks:
            return value.find(filterValue) == std::string_view::npos;
        default:
            return false;
    }
}

}  // namespace

bool CZoTraceData::SetFieldValue(unsigned int id, int value) {
    return SetKnownOrNumber(id, value);
}

bool CZoTraceData::SetFieldValue(unsigned int id, long value) {
    return SetKnownOrNumber(id, value);
}

bool CZoTraceData::SetKnownOrNumber(unsigned int id, long value) {
    switch (id) {
        case kZoFieldPid:
            return SetText(id, Decimal(platform::ProcessId()));
        case kZoFieldTid:
            return SetText(id, Decimal(platform::ThreadId()));
        case kZoFieldDate:
        case kZoFieldTime:
        case kZoFieldPreciseTime:
            return static_cast<int>(id) != m_iDateTimeLevel || PopulateDateandTime();
        default:
            return SetText(id, Decimal(value));
    }
}

bool CZoTraceData::SetFieldValue(unsigned int id, unsigned int value) {
    return SetText(id, Decimal(value));
}

bool CZoTraceData::SetFieldValue(unsigned int id, unsigned long value) {
    return SetText(id, Decimal(value));
}

bool CZoTraceData::SetFieldValue(unsigned int id, long long value) {
    return SetText(id, Decimal(value));
}

bool CZoTraceData::SetFieldValue(unsigned int id, unsigned long long value) {
    return SetText(id, Decimal(value));
}

bool CZoTraceData::SetFieldValue(unsigned int id, double value) {
    // Unlike printf it has the same decimal point in every locale.
    char text[kLongestDouble];
    const char* const end =
        std::to_chars(text, std::end(text), value, std::chars_format::fixed, kDecimals).ptr;
    return SetText(id, {text, static_cast<std::size_t>(end - text)});
}

bool CZoTraceData::SetFieldValue(unsigned int id, bool value) {
    return SetText(id, value ? "true" : "false");
}

bool CZoTraceData::SetFieldValue(unsigned int id, const char* value) {
    if (value == nullptr) {
        return SetText(id, {});
    }
    return SetText(id, id == kZoFieldSrcFile
                           ? std::string_view(value, strnlen(value, kLongestInlineValue))
                           : std::string_view(value));
}

bool CZoTraceData::SetText(unsigned int id, std::string_view value) {
    if (id >= kZoDataFieldCount) {
        return false;
    }
    Store(id, value);
    return !m_fields[id].filtered || TestDataFilter(id);
}

void CZoTraceData::Store(unsigned int id, std::string_view value) {
    char* const buffer = BufferFor(id, value.size());
    *std::copy(value.begin(), value.end(), buffer) = '\0';
    m_valuesSet[id / kBitsOfWord] |= std::uint64_t{1} << id % kBitsOfWord;
}

// A heap buffer, once taken, also serves the shorter values that follow.
char* CZoTraceData::BufferFor(unsigned int id, std::size_t length) {
    ZoTraceDataFieldInfo& field = m_fields[id];
    if (length > kLongestInlineValue) {
        m_longValues[id] = std::make_unique<char[]>(length + 1);
        field.value = m_longValues[id].get();
        field.valueOnHeap = true;
    }
    return field.value;
}

bool CZoTraceData::TestDataFilter(unsigned int id) const {
    if (id >= kZoDataFieldCount) {
        return false;
    }
    const ZoTraceDataFieldInfo& field = m_fields[id];
    const std::string_view value = field.value != nullptr ? field.value : std::string_view();
    return field.filterValue != nullptr && Passes(value, field.filterOperator, field.filterValue);
}

bool CZoTraceData::PopulateDateandTime() {
    const ClockTexts now = ReadClock(m_bLocalTime);
    Store(kZoFieldDate, now.date);
    Store(kZoFieldTime, now.time);
    Store(kZoFieldPreciseTime, now.preciseTime);

    const unsigned int clockFields[] = {kZoFieldDate, kZoFieldTime, kZoFieldPreciseTime};
    return std::all_of(std::begin(clockFields), std::end(clockFields), [this](unsigned int id) {
        return !m_fields[id].filtered || TestDataFilter(id);
    });
}
