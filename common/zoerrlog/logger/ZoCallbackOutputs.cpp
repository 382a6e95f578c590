#include <zoerrlog/logger/ZoCallbackOutputs.h>

#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/output/ZoOutputTypes.h>

CZoSyncCallbackOutput::CZoSyncCallbackOutput() : m_pfnCallback(nullptr) {
    SetType(zoerrlog::output::kSyncCallback);
}

bool CZoSyncCallbackOutput::SetParams(ZoLogCallback callback) {
    m_pfnCallback = callback;
    return true;
}

bool CZoSyncCallbackOutput::Open() {
    return true;
}

bool CZoSyncCallbackOutput::Log(CZoErrLogMessage& message) {
    m_pfnCallback(message.GetBuffer(), message.GetStringLen());
    return true;
}

bool CZoSyncCallbackOutput::Close() {
    m_pfnCallback = nullptr;
    return true;
}

CZoSyncParameterizedCallbackOutput::CZoSyncParameterizedCallbackOutput()
    : m_pfnCallback(nullptr), m_pParam(nullptr) {
    SetType(zoerrlog::output::kSyncParameterizedCallback);
}

bool CZoSyncParameterizedCallbackOutput::SetParams(ZoLogParameterizedCallback callback,
                                                   void* param) {
    m_pfnCallback = callback;
    m_pParam = param;
    return true;
}

bool CZoSyncParameterizedCallbackOutput::Open() {
    return m_pfnCallback != nullptr && m_pParam != nullptr;
}

bool CZoSyncParameterizedCallbackOutput::Log(CZoErrLogMessage& message) {
    if (m_pParam == nullptr) {
        return false;
    }
    m_pfnCallback(message.GetBuffer(), message.GetStringLen(), m_pParam);
    return true;
}

bool CZoSyncParameterizedCallbackOutput::Close() {
    m_pfnCallback = nullptr;
    m_pParam = nullptr;
    return true;
}

CZoAsyncCallbackOutput::CZoAsyncCallbackOutput() : m_pfnCallback(nullptr) {
    SetType(zoerrlog::output::kAsyncCallback);
}

bool CZoAsyncCallbackOutput::SetParams(ZoLogAsyncCallback callback) {
    m_pfnCallback = callback;
    return true;
}

bool CZoAsyncCallbackOutput::Open() {
    return true;
}

bool CZoAsyncCallbackOutput::Log(CZoErrLogMessage& message) {
    m_pfnCallback(message.GetBuffer(), message.GetStringLen(), &CZoErrLogMessage::FreeBuffer);
    return true;
}

bool CZoAsyncCallbackOutput::Close() {
    return true;
}

bool CZoAsyncCallbackOutput::IsAsync() {
    return true;
}

CZoAsyncParameterizedCallbackOutput::CZoAsyncParameterizedCallbackOutput()
    : m_pfnCallback(nullptr), m_pParam(nullptr) {
    SetType(zoerrlog::output::kAsyncParameterizedCallback);
}

bool CZoAsyncParameterizedCallbackOutput::SetParams(ZoLogAsyncParameterizedCallback callback,
                                                    void* param) {
    m_pfnCallback = callback;
    m_pParam = param;
    return true;
}

bool CZoAsyncParameterizedCallbackOutput::Open() {
    return m_pfnCallback != nullptr && m_pParam != nullptr;
}

bool CZoAsyncParameterizedCallbackOutput::Log(CZoErrLogMessage& message) {
    if (m_pParam == nullptr) {
        return false;
    }
    m_pfnCallback(message.GetBuffer(), message.GetStringLen(), &CZoErrLogMessage::FreeBuffer,
                  m_pParam);
    return true;
}

bool CZoAsyncParameterizedCallbackOutput::Close() {
    return true;
}

bool CZoAsyncParameterizedCallbackOutput::IsAsync() {
    return true;
}
