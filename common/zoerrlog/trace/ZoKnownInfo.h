#ifndef ZOERRLOG_TRACE_ZOKNOWNINFO_H
#define ZOERRLOG_TRACE_ZOKNOWNINFO_H

#include <zoerrlog/base/ZoExport.h>

/// Data fields that a trace line can carry; a field's number is its row in the known table.
constexpr int kZoDataFieldCount = 66;
/// Component libraries known by name; a component's number is its row in the known table plus one.
constexpr int kZoComponentCount = 27;
/// Characters that the inline buffer of a data field holds, the terminator included.
constexpr int kZoInlineValueSize = 1024;

/// A row of the known data field table.
struct KNOWNDATAFIELDINFO {
    const char* name;  ///< keyword, column heading and element name
    int width;         ///< column width in characters
};

/// A component or sub-component that a trace configuration can select.
struct ZoTraceComponentInfo {
    bool selected;
    unsigned int id;   ///< component number in bits 24 to 31, sub-component number in bits 16 to 23
    const char* name;  ///< "Component" or "Component/Subcomponent"; not owned
};

/// A data field of a trace configuration or of a trace record.
struct ZoTraceDataFieldInfo {
    bool traced;
    bool filtered;
    unsigned int id;
    const char* name;  ///< in the known table; not owned
    int width;
    const char* filterValue;      ///< null without a filter
    unsigned int filterOperator;  ///< 1 "==", 2 "!=", 7 "@@", 8 "!@"; 0 without a filter
    char* value;                  ///< the inline buffer or a heap buffer; null in a configuration
    bool valueOnHeap;
    char inlineBuffer[kZoInlineValueSize];
};

/// Stores the number and the address of the names of the known component libraries; true. The
/// table is read-only and lives as long as the library. Any thread may call it.
ZOERRLOG_EXPORT bool GetKnownComponentLibs(int* count, const char*** names);

/// Stores the number and the address of the known data fields; true. As above.
ZOERRLOG_EXPORT bool GetKnownDataFields(int* count, const KNOWNDATAFIELDINFO** fields);

#endif
