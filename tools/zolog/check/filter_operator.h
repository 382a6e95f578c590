#ifndef ZOLOG_CHECK_FILTER_OPERATOR_H
#define ZOLOG_CHECK_FILTER_OPERATOR_H

namespace zolog {

struct FilterOperator {
    unsigned int code;  ///< as in ZoTraceDataFieldInfo
    const char* word;
    const char* meaning;  ///< what the field must be, said before the value
};

inline constexpr FilterOperator kFilterOperators[] = {
    {1, "==", "is exactly"},
    {2, "!=", "is anything but"},
    {7, "@@", "contains"},
    {8, "!@", "does not contain"},
};

/// The operator of that code; a stand-in for a code that is not known.
constexpr FilterOperator OperatorOf(unsigned int code) {
    for (const FilterOperator& known : kFilterOperators) {
        if (known.code == code) {
            return known;
        }
    }
    return {code, "??", "is compared in an unknown way with"};
}

}  // namespace zolog

#endif
