#include <zoerrlog/base/ZoReadHold.h>
#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/logger/ZoSelectionCache.h>
#include <zoerrlog/platform/ThreadSlots.h>
#include <zoerrlog/trace/ZoTraceData.h>
#include <zoerrlog/trace/ZoTraceDataPool.h>

using namespace zoerrlog::platform;
using zoerrlog::base::ReadHold;

namespace {

// What a component identifier and the identifiers of its messages have in common.
constexpr unsigned int kComponentBits = 0xFFFF0000U;

}  // namespace

// What can be seen without the guard.

/// The answer to a question about a component, and for "yes" the version of the configuration that
/// gave it.
struct CZoLogger::QuickAnswer {
    ZoSelectionCache::Answer answer;
    int version;
};

inline bool CZoLogger::MayTrace() const {
    return m_selection.load(std::memory_order_acquire) != nullptr;
}

// The likely cases are those for which the question is asked at all: nobody wants to know.
inline CZoLogger::QuickAnswer CZoLogger::AskUnguarded(unsigned int componentId) const {
    const int version = m_tracedVersion.load(std::memory_order_acquire);
    const ZoSelectionCache* const selection = m_selection.load(std::memory_order_acquire);
    if (selection == nullptr) [[likely]] {
        return {ZoSelectionCache::kNotSelected, 0};
    }
    const ZoSelectionCache::Answer answer = selection->Find(componentId);
    if (answer == ZoSelectionCache::kNotSelected) [[likely]] {
        return {answer, 0};
    }
    // A "yes" holds if it was found within the life of one configuration: a change takes the
    // version away before it touches any answer.
    if (version == 0 || m_tracedVersion.load(std::memory_order_relaxed) != version) {
        return {ZoSelectionCache::kUnknown, 0};
    }
    return {answer, version};
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
    const QuickAnswer quick = AskUnguarded(componentId);
    if (quick.answer == ZoSelectionCache::kNotSelected) [[likely]] {
        return false;
    }
    return quick.answer == ZoSelectionCache::kSelected || IsTracingForSure(componentId);
}

// Apart from the question, like its neighbours below: an answer without the guard pays nothing for
// it.
__attribute__((noinline)) bool CZoLogger::IsTracingForSure(unsigned int componentId) {
    const ReadHold hold(m_traceGuard.m_pState);
    return componentId == 0 ? IsTracing() : IsTracing(componentId);
}

bool CZoLogger::FieldTraced(unsigned int field) {
    if (!MayTrace()) {
        return false;
    }
    const ReadHold hold(m_traceGuard.m_pState);
    return IsTracing() && m_pTraceOutput != nullptr && m_pTraceData->FieldTraced(field);
}

bool CZoLogger::ShouldTrace(unsigned int componentId, CZoTraceData* record) {
    if (record == nullptr) {
        return false;
    }
    const QuickAnswer quick = AskUnguarded(componentId);
    if (quick.answer == ZoSelectionCache::kNotSelected) {
        return false;
    }
    const bool upToDate =
        quick.answer == ZoSelectionCache::kSelected && record->m_iConfigVersion == quick.version;
    return upToDate || ShouldTraceForSure(componentId, *record);
}

__attribute__((noinline)) bool CZoLogger::ShouldTraceForSure(unsigned int componentId,
                                                             CZoTraceData& record) {
    const ReadHold hold(m_traceGuard.m_pState);
    if (!IsTracing(componentId)) {
        return false;
    }
    Refresh(record);
    return true;
}

bool CZoLogger::TraceAlloc(CZoTraceData** record) {
    if (record == nullptr || *record != nullptr || !MayTrace()) {
        return false;
    }
    const ReadHold hold(m_traceGuard.m_pState);
    return IsTracing() && HandOutRecord(record);
}

bool CZoLogger::ShouldTraceAlloc(unsigned int componentId, CZoTraceData** record) {
    if (record == nullptr || *record != nullptr) {
        return false;
    }
    const QuickAnswer quick = AskUnguarded(componentId);
    if (quick.answer == ZoSelectionCache::kNotSelected) {
        return false;
    }
    if (quick.answer == ZoSelectionCache::kSelected) {
        const auto* entry = static_cast<const ThreadTraceData*>(ThreadSlotValue(m_dwTlsIndex));
        if (entry != nullptr && entry->m_pTraceData->m_iConfigVersion == quick.version) {
            *record = entry->m_pTraceData;
            return true;
        }
    }
    return ShouldTraceAllocForSure(componentId, record);
}

__attribute__((noinline)) bool CZoLogger::ShouldTraceAllocForSure(unsigned int componentId,
                                                                  CZoTraceData** record) {
    const ReadHold hold(m_traceGuard.m_pState);
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
