#include <zoerrlog/trace/ZoThreadState.h>

namespace {

constinit thread_local bool t_suppressed = false;
constinit thread_local void* t_requestContext = nullptr;

}  // namespace

CZoTraceSupresser::CZoTraceSupresser() {
    setTracing(false);
}

CZoTraceSupresser::~CZoTraceSupresser() {
    setTracing(true);
}

CZoTraceSupresser& CZoTraceSupresser::operator=(const CZoTraceSupresser&) = default;

bool CZoTraceSupresser::isTracing() {
    return !t_suppressed;
}

void CZoTraceSupresser::setTracing(bool on) {
    t_suppressed = !on;
}

CZoRequestContext& CZoRequestContext::operator=(const CZoRequestContext&) = default;

void* CZoRequestContext::GetRequestContextData() {
    return t_requestContext;
}

void CZoRequestContext::SetRequestContextData(void* data) {
    t_requestContext = data;
}

void initializeThreadKey(unsigned long* key) {
    *key = 0;
}

void initializeThreadId(unsigned long* id) {
    *id = 0;
}

int getThreadId(unsigned long id) {
    return static_cast<int>(id);
}
