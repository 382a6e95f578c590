#include <zoerrlog/trace/ZoTraceData.h>

#include <algorithm>
#include <bit>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/trace/ZoTraceSettings.h>

CZoTraceData::CZoTraceData()
    : m_bConfigured(false),
      m_bLocalTime(false),
      m_iFormat(0),
      m_valuesSet{},
      m_messageText{},
      m_fieldOrder{},
      m_iConfigVersion(0),
      m_pLogger(nullptr),
      m_bLoggerChosen(false),
      m_iDateTimeLevel(0) {
    const KNOWNDATAFIELDINFO* known = nullptr;
    int count = 0;
    GetKnownDataFields(&count, &known);
    for (int i = 0; i < count; ++i) {
        // Member by member: the buffers are large, and only their first byte needs a value.
        ZoTraceDataFieldInfo& field = m_fields[i];
        field.traced = false;
        field.filtered = false;
        field.id = static_cast<unsigned int>(i);
        field.name = known[i].name;
        field.width = known[i].width;
        field.filterValue = nullptr;
        field.filterOperator = 0;
        field.inlineBuffer[0] = '\0';
        field.value = field.inlineBuffer;
        field.valueOnHeap = false;
    }
}

CZoTraceData::~CZoTraceData() = default;

CZoTraceData& CZoTraceData::operator=(const CZoTraceData& source) {
    if (this == &source) {
        return *this;
    }
    m_bLocalTime = source.m_bLocalTime;
    m_iFormat = source.m_iFormat;
    m_settings = source.m_settings;
    for (int i = 0; i < kZoDataFieldCount; ++i) {
        // Values and their buffers stay the record's own.
        const ZoTraceDataFieldInfo& from = source.m_fields[i];
        ZoTraceDataFieldInfo& to = m_fields[i];
        to.traced = from.traced;
        to.filtered = from.filtered;
        to.id = from.id;
        to.name = from.name;
        to.width = from.width;
        to.filterValue = from.filterValue;
        to.filterOperator = from.filterOperator;
    }
    std::copy(std::begin(source.m_fieldOrder), std::end(source.m_fieldOrder), m_fieldOrder);
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
    // Only what was set, which is a few of many.
    for (unsigned int word = 0; word < kValueWords; ++word) {
        while (m_valuesSet[word] != 0) {
            ClearValue(word * kBitsOfWord +
                       static_cast<unsigned int>(std::countr_zero(m_valuesSet[word])));
            m_valuesSet[word] &= m_valuesSet[word] - 1;
        }
    }
    m_messageText[0] = '\0';
    m_longMessageText.reset();
    m_message.CleanUpMessage();
}

void CZoTraceData::ClearValue(unsigned int id) {
    ZoTraceDataFieldInfo& field = m_fields[id];
    m_longValues[id].reset();
    field.valueOnHeap = false;
    field.value = field.inlineBuffer;
    field.inlineBuffer[0] = '\0';
}

void CZoTraceData::Recycle() {
    ClearValues();
    for (ZoTraceDataFieldInfo& field : m_fields) {
        field.traced = false;
        field.filtered = false;
        field.filterValue = nullptr;
        field.filterOperator = 0;
    }
    std::fill(std::begin(m_fieldOrder), std::end(m_fieldOrder), 0U);
    m_settings.reset();
    m_bConfigured = false;
    m_iConfigVersion = 0;
    m_iFormat = 0;
    m_iDateTimeLevel = 0;
    m_pLogger = nullptr;
    m_bLoggerChosen = false;
}
