#ifndef ZOERRLOG_TRACE_ZOKNOWNINFO_H
#define ZOERRLOG_TRACE_ZOKNOWNINFO_H

#include <zoerrlog/base/ZoExport.h>

/// Data fields that a trace line can carry; a field's number is its row in the known table.
constexpr int kZoDataFieldCount = 66;
/// Component libraries known by name; a component's number is its row in the known table plus one.
constexpr int kZoComponentCount = 27;
/// Characters that the inline buffer of a data field holds, the terminator included.
constexpr int kZoInlineValueSize = 1024;

/// The numbers of the data fields, their rows in the known table. They never change.
enum ZoDataField : unsigned int {
    kZoFieldMessage = 0,
    kZoFieldSrcFile = 1,
    kZoFieldPid = 2,
    kZoFieldTid = 3,
    kZoFieldDate = 4,
    kZoFieldTime = 5,
    kZoFieldPreciseTime = 6,
    kZoFieldFunction = 7,
    kZoFieldReturnValue = 8,
    kZoFieldUser = 9,
    kZoFieldGroup = 10,
    kZoFieldDomain = 11,
    kZoFieldRealm = 12,
    kZoFieldPolicy = 13,
    kZoFieldRule = 14,
    kZoFieldDirectory = 15,
    kZoFieldAgentName = 16,
    kZoFieldAgentType = 17,
    kZoFieldTransactionID = 18,
    kZoFieldObjectClass = 19,
    kZoFieldDomainOID = 20,
    kZoFieldSearchKey = 21,
    kZoFieldErrorString = 22,
    kZoFieldErrorValue = 23,
    kZoFieldObjectOID = 24,
    kZoFieldProperty = 25,
    kZoFieldIPAddr = 26,
    kZoFieldIPPort = 27,
    kZoFieldAuthStatus = 28,
    kZoFieldAuthReason = 29,
    kZoFieldAuthScheme = 30,
    kZoFieldCertSerial = 31,
    kZoFieldSubjectDN = 32,
    kZoFieldIssuerDN = 33,
    kZoFieldSessionSpec = 34,
    kZoFieldSessionID = 35,
    kZoFieldCertDistPt = 36,
    kZoFieldUserDN = 37,
    kZoFieldResource = 38,
    kZoFieldAction = 39,
    kZoFieldRealmOID = 40,
    kZoFieldState = 41,
    kZoFieldClusterID = 42,
    kZoFieldHandleCount = 43,
    kZoFieldFreeHandleCount = 44,
    kZoFieldBusyHandleCount = 45,
    kZoFieldResponseTime = 46,
    kZoFieldThroughput = 47,
    kZoFieldMaxThroughput = 48,
    kZoFieldMinThroughput = 49,
    kZoFieldThreshold = 50,
    kZoFieldTransactionName = 51,
    kZoFieldData = 52,
    kZoFieldHexadecimalData = 53,
    kZoFieldQuery = 54,
    kZoFieldActiveExpr = 55,
    kZoFieldCallDetail = 56,
    kZoFieldRequestIPAddr = 57,
    kZoFieldReturns = 58,
    kZoFieldExpression = 59,
    kZoFieldResult = 60,
    kZoFieldCacheHits = 61,
    kZoFieldCacheSize = 62,
    kZoFieldRefCount = 63,
    kZoFieldExecutionTime = 64,
    kZoFieldTenant = 65
};

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
