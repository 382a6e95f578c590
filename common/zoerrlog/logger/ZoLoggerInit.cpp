#include <initializer_list>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/logger/ZoModuleHolder.h>
#include <zoerrlog/logger/ZoSelectionCache.h>
#include <zoerrlog/platform/ThreadSlots.h>
#include <zoerrlog/trace/ZoTraceData.h>
#include <zoerrlog/trace/ZoTraceDataPool.h>

namespace {

/// All three guards for writing, in the one order in which more than one is ever taken.
class AllChannels {
public:
    AllChannels(CZoErrLogGuard& error, CZoErrLogGuard& trace, CZoErrLogGuard& audit)
        : m_error(error), m_trace(trace), m_audit(audit) {}

private:
    CZoErrLogAutoWriter m_error;
    CZoErrLogAutoWriter m_trace;
    CZoErrLogAutoWriter m_audit;
};

}  // namespace

void CZoLogger::Init() {
    const AllChannels hold(m_errorGuard, m_traceGuard, m_auditGuard);
    if (Inited()) {
        return;
    }
    m_iComponentCount = kZoComponentCount;
    m_ppComponents = std::make_unique<CZoErrLogComponent*[]>(kZoComponentCount);
    m_modules.resize(kZoComponentCount);
    m_builtInComponent = std::make_unique<CZoLogComponent>();
    m_ppComponents[0] = m_builtInComponent.get();

    int count = 0;
    const char** libraries = nullptr;
    GetKnownComponentLibs(&count, &libraries);
    for (int i = 1; i < count; ++i) {
        m_ppComponents[i] = LoadComponent(static_cast<unsigned long>(i) + 1, libraries[i]);
    }
    InitKnownInfo();
    ZoTraceDataPool::Instance().AddLogger();
    m_dwTlsIndex = zoerrlog::platform::AllocateThreadSlot();
    m_bInited.store(true, std::memory_order_release);
}

void CZoLogger::Release() {
    const AllChannels hold(m_errorGuard, m_traceGuard, m_auditGuard);
    if (!Inited()) {
        return;
    }
    BeginTraceChange();
    UnloadComponents();
    m_ppComponents.reset();
    m_builtInComponent.reset();
    for (OutputOwner* const slot :
         {&m_pErrorOutput, &m_pTraceOutput, &m_pTraceOutput2, &m_pAuditOutput}) {
        Remove(*slot);
    }
    m_strAvailableDataFields.clear();
    m_strAvailableComponents.clear();
    m_pComponentInfo.reset();
    m_iComponentInfoCount = 0;
    m_compositeNames.clear();
    m_pDataFieldInfo = nullptr;
    m_iDataFieldCount = 0;
    DropConfiguration();
    PublishTraceState();
    // In this order: an ending thread must not give back a record that is no longer its own.
    zoerrlog::platform::FreeThreadSlot(m_dwTlsIndex);
    ZoTraceDataPool::Instance().RemoveLogger(m_dwTlsIndex);
    m_dwTlsIndex = zoerrlog::platform::kNoThreadSlot;
    m_bInited.store(false, std::memory_order_release);
}

void CZoLogger::CloseForExit() {
    // Threads that still run get false from now on, but may hold texts and tables of the logger:
    // those stay, and the component libraries stay loaded.
    m_bInited.store(false, std::memory_order_release);
    BeginTraceChange();
    m_selection.store(nullptr, std::memory_order_release);
    RemoveForExit(m_errorGuard, {&m_pErrorOutput});
    RemoveForExit(m_traceGuard, {&m_pTraceOutput, &m_pTraceOutput2});
    RemoveForExit(m_auditGuard, {&m_pAuditOutput});
}

void CZoLogger::RemoveForExit(CZoErrLogGuard& guard, std::initializer_list<OutputOwner*> slots) {
    // A thread may be stuck in an output, and the process may be exiting from within one: then the
    // output is left as it is.
    if (guard.LockForExit()) {
        for (OutputOwner* const slot : slots) {
            Remove(*slot);
        }
        guard.Unlock();
    }
}
