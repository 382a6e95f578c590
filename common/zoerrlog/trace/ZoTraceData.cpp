#include <zoerrlog/trace/ZoTraceData.h>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/trace/ZoTraceSettings.h>

CZoTraceData::CZoTraceData()
    : m_bConfigured(false),
      m_bLocalTime(false),
      m_iFormat(0),
      m_iConfigVersion(0),
      m_pLogger(nullptr),
      m_bLoggerChosen(false),
      m_iDateTimeLevel(0) {
    m_messageText[0] = '\0';
}

CZoTraceData::~CZoTraceData() = default;

CZoTraceData& CZoTraceData::operator=(const CZoTraceData& source) {
    if (this == &source) {
        return *this;
    }
    m_bLocalTime = source.m_bLocalTime;
    m_iFormat = source.m_iFormat;
    m_traced = source.m_traced;
    m_filtered = source.m_filtered;
    m_settings = source.m_settings;
    m_iConfigVersion = source.m_iConfigVersion;
    m_iDateTimeLevel = source.m_iDateTimeLevel;
    if (source.m_pLogger != nullptr && !m_bLoggerChosen) {
        m_pLogger = source.m_pLogger;
    }
    m_bConfigured = true;
    return *this;
}

void CZoTraceData::SetLogger(CZoLogger* logger) {
    m_pLogger = logger;
    m_bLoggerChosen = true;
}

CZoLogger* CZoTraceData::GetLogger() {
    return m_pLogger != nullptr ? m_pLogger : theLogger();
}

bool CZoTraceData::Log() {
    return GetLogger()->LogTraceMsg(m_message);
}

bool CZoTraceData::CleanUpData() {
    if (m_bConfigured) {
        ClearValues();
    }
    return true;
}

void CZoTraceData::LeaveNoBody() {
    CleanUpData();
}

void CZoTraceData::ClearValues() {
    m_values.Clear();
    m_messageText[0] = '\0';
    m_longMessageText.reset();
    m_message.CleanUpMessage();
}

void CZoTraceData::Recycle() {
    ClearValues();
    m_traced.Clear();
    m_filtered.Clear();
    m_settings.reset();
    m_bConfigured = false;
    m_iConfigVersion = 0;
    m_iFormat = 0;
    m_iDateTimeLevel = 0;
    m_pLogger = nullptr;
    m_bLoggerChosen = false;
}
