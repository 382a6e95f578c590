#include <zoerrlog/trace/ZoKnownInfo.h>

#include <iterator>
#include <string_view>

namespace {

// A field's number is its row: callers set values by number, so the order never changes.
constexpr KNOWNDATAFIELDINFO kDataFields[] = {
    {"Message", 64},
    {"SrcFile", 32},
    {"Pid", 8},
    {"Tid", 8},
    {"Date", 16},
    {"Time", 8},
    {"PreciseTime", 16},
    {"Function", 32},
    {"ReturnValue", 32},
    {"User", 32},
    {"Group", 32},
    {"Domain", 64},
    {"Realm", 64},
    {"Policy", 64},
    {"Rule", 64},
    {"Directory", 64},
    {"AgentName", 64},
    {"AgentType", 64},
    {"TransactionID", 64},
    {"ObjectClass", 64},
    {"DomainOID", 64},
    {"SearchKey", 64},
    {"ErrorString", 64},
    {"ErrorValue", 64},
    {"ObjectOID", 64},
    {"Property", 64},
    {"IPAddr", 32},
    {"IPPort", 16},
    {"AuthStatus", 32},
    {"AuthReason", 32},
    {"AuthScheme", 32},
    {"CertSerial", 32},
    {"SubjectDN", 64},
    {"IssuerDN", 64},
    {"SessionSpec", 64},
    {"SessionID", 16},
    {"CertDistPt", 64},
    {"UserDN", 64},
    {"Resource", 64},
    {"Action", 64},
    {"RealmOID", 64},
    {"State", 8},
    {"ClusterID", 16},
    {"HandleCount", 16},
    {"FreeHandleCount", 16},
    {"BusyHandleCount", 16},
    {"ResponseTime", 32},
    {"Throughput", 32},
    {"MaxThroughput", 32},
    {"MinThroughput", 32},
    {"Threshold", 32},
    {"TransactionName", 32},
    {"Data", 64},
    {"HexadecimalData", 128},
    {"Query", 64},
    {"ActiveExpr", 64},
    {"CallDetail", 64},
    {"RequestIPAddr", 32},
    {"Returns", 8},
    {"Expression", 32},
    {"Result", 16},
    {"CacheHits", 5},
    {"CacheSize", 5},
    {"RefCount", 5},
    {"ExecutionTime", 24},
    {"Tenant", 64},
};
static_assert(std::size(kDataFields) == kZoDataFieldCount);
static_assert(kZoFieldTenant + 1 == kZoDataFieldCount);
static_assert(kDataFields[kZoFieldIPAddr].name == std::string_view("IPAddr"));

// A library's component number is its row plus one. The first row stands for the component that is
// built in and is never loaded.
const char* g_componentLibraries[] = {
    "zologcomponent",
    "zotestcomponent",
    "zoagentfunccomponent",
    "zoagentconmgrcomponent",
    "zoservercomponent",
    "zoisprotectedcomponent",
    "zologinlogoutcomponent",
    "zoisauthorizedcomponent",
    "zotunnelcomponent",
    "zojavaapicomponent",
    "zodirectorycomponent",
    "zoodbccomponent",
    "zoldapcomponent",
    "zoagentframeworkcomponent",
    "zowebagentcomponent",
    "zoxmlagentcomponent",
    "zosamlagentcomponent",
    "zohttpagentcomponent",
    "zoaffiliateagentcomponent",
    "zoimscomponent",
    "vejcomponent",
    "zoproxyagentcomponent",
    "zofedclientcomponent",
    "zofedservercomponent",
    "zosharepointagentcomponent",
    "zodlpcomponent",
    "zoshareddbcomponent",
};
static_assert(std::size(g_componentLibraries) == kZoComponentCount);

}  // namespace

bool GetKnownComponentLibs(int* count, const char*** names) {
    *count = kZoComponentCount;
    *names = g_componentLibraries;
    return true;
}

bool GetKnownDataFields(int* count, const KNOWNDATAFIELDINFO** fields) {
    *count = kZoDataFieldCount;
    *fields = kDataFields;
    return true;
}
