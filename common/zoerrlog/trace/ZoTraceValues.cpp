#include <charconv>
#include <cstring>
#include <iterator>
#include <limits>

#include <zoerrlog/platform/Process.h>
#include <zoerrlog/trace/ZoClockTexts.h>
#include <zoerrlog/trace/ZoFilterOperator.h>
#include <zoerrlog/trace/ZoTraceData.h>
#include <zoerrlog/trace/ZoTraceSettings.h>

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
    return id < kZoDataFieldCount && StoreAndTest(id, value);
}

bool CZoTraceData::StoreAndTest(unsigned int id, std::string_view value) {
    m_values.Set(id, value);
    return !m_filtered.Has(id) || TestDataFilter(id);
}

bool CZoTraceData::TestDataFilter(unsigned int id) const {
    const ZoTraceSettings::Filter& filter = m_settings->filters[id];
    return Passes(m_values.Get(id), filter.filterOperator, filter.value);
}

bool CZoTraceData::PopulateDateandTime() {
    const ClockTexts now = ReadClock(m_bLocalTime);
    // All three are stored, whichever of them a filter rejects.
    const bool datePasses = StoreAndTest(kZoFieldDate, now.date);
    const bool timePasses = StoreAndTest(kZoFieldTime, now.time);
    const bool preciseTimePasses = StoreAndTest(kZoFieldPreciseTime, now.preciseTime);
    return datePasses && timePasses && preciseTimePasses;
}
