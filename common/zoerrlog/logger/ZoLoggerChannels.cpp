#include <zoerrlog/base/ZoReadHold.h>
#include <zoerrlog/logger/ZoLogger.h>

using zoerrlog::base::ReadHold;

// Inline, because a line comes through here: see zoerrlog::platform::WriteFile.
inline bool CZoLogger::LogTo(CZoErrLogGuard& guard, const OutputOwner& output,
                             CZoErrLogMessage& message) {
    if (!Inited()) {
        return false;
    }
    const ReadHold hold(guard.m_pState);
    return output != nullptr && output->Log(message);
}

bool CZoLogger::SetLogOutput(CZoLogOutput* output) {
    const CZoErrLogAutoWriter hold(m_errorGuard);
    return SetLogOutput_Unlocked(output);
}

bool CZoLogger::SetLogOutput_Unlocked(CZoLogOutput* output) {
    return Install(m_pErrorOutput, output);
}

void CZoLogger::DisableLog() {
    const CZoErrLogAutoWriter hold(m_errorGuard);
    Remove(m_pErrorOutput);
}

bool CZoLogger::LogErrMsg(CZoErrLogMessage& message) {
    return LogTo(m_errorGuard, m_pErrorOutput, message);
}

bool CZoLogger::EnableAuditLogRollover(CZoLogOutput* output) {
    const CZoErrLogAutoWriter hold(m_auditGuard);
    return Install(m_pAuditOutput, output);
}

void CZoLogger::DisableAuditLog() {
    const CZoErrLogAutoWriter hold(m_auditGuard);
    Remove(m_pAuditOutput);
}

bool CZoLogger::LogAuditMsg(CZoErrLogMessage& message) {
    return LogTo(m_auditGuard, m_pAuditOutput, message);
}

bool CZoLogger::LogTraceMsg(CZoErrLogMessage& message) {
    if (!Inited()) {
        return false;
    }
    const ReadHold hold(m_traceGuard.m_pState);
    if (m_pTraceOutput2 == nullptr) {
        return m_pTraceOutput != nullptr && m_pTraceOutput->Log(message);
    }
    const bool firstTook = m_pTraceOutput == nullptr || m_pTraceOutput->Log(message);
    return m_pTraceOutput2->Log(message) && firstTook;
}
