#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/logger/ZoSelectionCache.h>
#include <zoerrlog/logger/ZoTraceState.h>
#include <zoerrlog/platform/ThreadSlots.h>
#include <zoerrlog/trace/ZoTraceData.h>
#include <zoerrlog/trace/ZoTraceDataPool.h>

using namespace zoerrlog::logger;
using namespace zoerrlog::platform;

namespace {

// What a component identifier and the identifiers of its messages have in common.
constexpr unsigned int kComponentBits = 0xFFFF0000U;

}  // namespace

// What can be seen without the guard: enough for most answers of "no", never for a "yes".

bool CZoLogger::MayTrace() const {
    const unsigned int state = m_traceState.load(std::memory_order_acquire);
    return Inited() && (state & kConfiguration) != 0 &&
           (state & (kFirstOutput | kSecondOutput)) != 0;
}

bool CZoLogger::MayTrace(unsigned int componentId) const {
    return MayTrace() && m_aComponentTraced->Find(componentId) != ZoSelectionCache::kNotSelected;
}

// To be asked with the guard held.

bool CZoLogger::IsTracing() const {
    return Inited() && m_pTraceData != nullptr &&
           (m_pTraceOutput != nullptr || m_pTraceOutput2 != nullptr);
}

bool CZoLogger::IsTracing(unsigned int componentId) {
    if (!IsTracing()) {
        return false;
    }
    const ZoSelectionCache::Answer known = m_aComponentTraced->Find(componentId);
    if (known != ZoSelectionCache::kUnknown) {
        return known == ZoSelectionCache::kSelected;
    }
    const bool selected = m_pTraceData->ComponentSelected(componentId & kComponentBits);
    m_aComponentTraced->Store(componentId, selected);
    return selected;
}

bool CZoLogger::TraceEnabled(unsigned int componentId) {
    if (componentId == 0) {
        if (!MayTrace()) {
            return false;
        }
        const CZoErrLogAutoReader hold(m_traceGuard);
        return IsTracing();
    }
    if (!MayTrace(componentId)) {
        return false;
    }
    const CZoErrLogAutoReader hold(m_traceGuard);
    return IsTracing(componentId);
}

bool CZoLogger::FieldTraced(unsigned int field) {
    if (!MayTrace()) {
        return false;
    }
    const CZoErrLogAutoReader hold(m_traceGuard);
    return IsTracing() && m_pTraceOutput != nullptr && m_pTraceData->FieldTraced(field);
}

bool CZoLogger::ShouldTrace(unsigned int componentId, CZoTraceData* record) {
    if (record == nullptr || !MayTrace(componentId)) {
        return false;
    }
    const CZoErrLogAutoReader hold(m_traceGuard);
    if (!IsTracing(componentId)) {
        return false;
    }
    Refresh(*record);
    return true;
}

bool CZoLogger::TraceAlloc(CZoTraceData** record) {
    if (record == nullptr || *record != nullptr || !MayTrace()) {
        return false;
    }
    const CZoErrLogAutoReader hold(m_traceGuard);
    return IsTracing() && HandOutRecord(record);
}

bool CZoLogger::ShouldTraceAlloc(unsigned int componentId, CZoTraceData** record) {
    if (record == nullptr || *record != nullptr || !MayTrace(componentId)) {
        return false;
    }
    const CZoErrLogAutoReader hold(m_traceGuard);
    return IsTracing(componentId) && HandOutRecord(record);
}

// The guard stays held from the look at the configuration to the end of its copying.
bool CZoLogger::HandOutRecord(CZoTraceData** record) {
    CZoTraceData* const own = RecordOfThread();
    if (own == nullptr) {
        return false;
    }
    Refresh(*own);
    *record = own;
    return true;
}

void CZoLogger::Refresh(CZoTraceData& record) const {
    // Versions are unique in the process: another one is another configuration, be it older.
    if (record.m_iConfigVersion != m_pTraceData->m_iConfigVersion) {
        record = *m_pTraceData;
    }
}

CZoTraceData* CZoLogger::RecordOfThread() {
    auto* entry = static_cast<ThreadTraceData*>(ThreadSlotValue(m_dwTlsIndex));
    if (entry == nullptr) {
        // Makes room first: a record that was taken must not be lost to a failed allocation.
        if (!SetThreadSlotValue(m_dwTlsIndex, nullptr)) {
            return nullptr;
        }
        entry = &ZoTraceDataPool::Instance().Take(m_dwTlsIndex);
        static_cast<void>(SetThreadSlotValue(m_dwTlsIndex, entry));
    }
    return entry->m_pTraceData;
}
