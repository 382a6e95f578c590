#ifndef ZOERRLOG_TRACE_ZOFILTEROPERATOR_H
#define ZOERRLOG_TRACE_ZOFILTEROPERATOR_H

#include <string_view>

namespace zoerrlog::trace {

/// Tests of a filter. The codes are those of ZoTraceDataFieldInfo, where other programs read them.
enum FilterOperator : unsigned int {
    kNoFilter = 0,
    kEquals = 1,
    kDiffers = 2,
    kContains = 7,
    kLacks = 8
};

/// Characters that every operator has.
constexpr std::size_t kOperatorLength = 2;

/// The operator that `text` begins with, or kNoFilter.
constexpr FilterOperator OperatorAtStart(std::string_view text) {
    const std::string_view word = text.substr(0, kOperatorLength);
    return word == "=="   ? kEquals
           : word == "!=" ? kDiffers
           : word == "@@" ? kContains
           : word == "!@" ? kLacks
                          : kNoFilter;
}

}  // namespace zoerrlog::trace

#endif
