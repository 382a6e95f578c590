#include <zoerrlog/logger/ZoLogger.h>

#include <zoerrlog/logger/ZoModuleHolder.h>
#include <zoerrlog/logger/ZoSelectionCache.h>
#include <zoerrlog/platform/Lifetime.h>
#include <zoerrlog/platform/ThreadSlots.h>
#include <zoerrlog/trace/ZoTraceData.h>

std::atomic<bool> CZoLogger::m_bUnloadedComponents{false};

/// The default logger: lets the process-lasting storage make it and end it.
struct ZoLoggerAccess {
    struct DefaultLogger : CZoLogger {
        DefaultLogger() = default;
        void CloseForExit() { CZoLogger::CloseForExit(); }
    };
};

CZoLogger* theLogger() {
    static zoerrlog::platform::ProcessLasting<ZoLoggerAccess::DefaultLogger> logger;
    return &logger.Get();
}

CZoLogger::CZoLogger()
    : m_bInited(false),
      m_iComponentCount(0),
      m_bUseLocalTime(false),
      m_iComponentInfoCount(0),
      m_pDataFieldInfo(nullptr),
      m_iDataFieldCount(0),
      m_selection(nullptr),
      m_tracedVersion(0),
      m_dwTlsIndex(zoerrlog::platform::kNoThreadSlot),
      m_iExecutionTimeThreshold(0) {
    Init();
}

CZoLogger::~CZoLogger() {
    Release();
}

void CZoLogger::UseLocalTime(bool useLocalTime) {
    m_bUseLocalTime.store(useLocalTime, std::memory_order_relaxed);
}

bool CZoLogger::ShouldUseLocalTime() {
    return m_bUseLocalTime.load(std::memory_order_relaxed);
}

void CZoLogger::SetExecutionTimeThreshold(int threshold) {
    m_iExecutionTimeThreshold.store(threshold, std::memory_order_relaxed);
}

int CZoLogger::GetExecutionTimeThreshold() {
    return m_iExecutionTimeThreshold.load(std::memory_order_relaxed);
}

bool CZoLogger::Inited() const {
    return m_bInited.load(std::memory_order_acquire);
}
