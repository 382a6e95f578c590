#include <zoerrlog/logger/ZoLogger.h>

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

bool CZoLogger::LogTo(CZoErrLogGuard& guard, const OutputOwner& output, CZoErrLogMessage& message) {
    if (!Inited()) {
        return false;
    }
    const CZoErrLogAutoReader hold(guard);
    return output != nullptr && output->Log(message);
}

bool CZoLogger::LogTraceMsg(CZoErrLogMessage& message) {
    if (!Inited()) {
        return false;
    }
    const CZoErrLogAutoReader hold(m_traceGuard);
    bool taken = m_pTraceOutput != nullptr || m_pTraceOutput2 != nullptr;
    for (CZoLogOutput* const output : {m_pTraceOutput.get(), m_pTraceOutput2.get()}) {
        if (output != nullptr) {
            taken = output->Log(message) && taken;
        }
    }
    return taken;
}
