#ifndef ZOERRLOG_TRACE_ZOTRACESETTINGS_H
#define ZOERRLOG_TRACE_ZOTRACESETTINGS_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <zoerrlog/trace/ZoKnownInfo.h>

/// What a trace configuration shares with the records that are filled from it. Written only while
/// the configuration is read, before any record knows it.
struct ZoTraceSettings {
    /// A field of the line, in the order of the line.
    struct Column {
        unsigned int field;
        int width;
        std::string_view name;
    };
    /// The filter of a field; its operator is kNoFilter in most.
    struct Filter {
        unsigned int filterOperator = 0;
        std::string value;
    };

    std::string separator;
    std::vector<Column> columns;
    std::size_t widestColumn = 0;      // its width or the length of its name
    std::size_t roomBesideValues = 0;  // the most that the columns take beside their values
    std::array<Filter, kZoDataFieldCount> filters;
    std::vector<ZoTraceComponentInfo> components;
    std::array<ZoTraceDataFieldInfo, kZoDataFieldCount> fields{};
};

#endif
