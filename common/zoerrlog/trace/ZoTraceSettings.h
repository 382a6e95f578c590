#ifndef ZOERRLOG_TRACE_ZOTRACESETTINGS_H
#define ZOERRLOG_TRACE_ZOTRACESETTINGS_H

#include <array>
#include <string>
#include <vector>

#include <zoerrlog/trace/ZoKnownInfo.h>

/// What a trace configuration shares with the records that are filled from it. Written only while
/// the configuration is read, before any record knows it.
struct ZoTraceSettings {
    std::string separator;
    std::vector<ZoTraceComponentInfo> components;
    std::array<std::string, kZoDataFieldCount> filterValues;
};

#endif
