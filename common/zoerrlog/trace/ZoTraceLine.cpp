#include <cstdarg>
#include <memory>
#include <string>

#include <zoerrlog/message/ZoBoundedFormat.h>
#include <zoerrlog/message/ZoTraceLayout.h>
#include <zoerrlog/trace/ZoTraceData.h>
#include <zoerrlog/trace/ZoTraceSettings.h>

using namespace zoerrlog::message;

namespace {

constexpr const char* kElementName = "TraceMessage";

}  // namespace

const char* CZoTraceData::FormatTraceMessage(const char* format, ...) {
    va_list args;
    va_start(args, format);
    const char* const text = FormatTraceMessageVA(format, args);
    va_end(args);
    return text;
}

const char* CZoTraceData::FormatTraceMessageVA(const char* format, va_list args) {
    m_messageText[0] = '\0';
    if (format == nullptr || *format == '\0') {
        return m_messageText;
    }
    va_list again;
    va_copy(again, args);
    const char* text = m_messageText;
    const int length = FormatBounded(m_messageText, sizeof(m_messageText), format, args);
    if (length >= static_cast<int>(sizeof(m_messageText))) {
        text = FormatLongMessage(static_cast<std::size_t>(length), format, again);
    }
    va_end(again);
    return text;
}

const char* CZoTraceData::FormatLongMessage(std::size_t length, const char* format, va_list args) {
    m_longMessageText = std::make_unique<char[]>(length + 1);
    FormatBounded(m_longMessageText.get(), length + 1, format, args);
    return m_longMessageText.get();
}

bool CZoTraceData::Format() {
    return AssembleTraceMessage(&m_message, kValues);
}

const char* CZoTraceData::GetFormattedTraceMessage() {
    return m_message.GetBuffer();
}

bool CZoTraceData::AssembleTraceMessage(CZoErrLogMessage* message, int kind) {
    const char* tag = nullptr;
    if (m_iFormat == kXml) {
        if (kind != kValues) {
            return false;
        }
        tag = kElementName;
    } else if (m_iFormat == kDelimited && m_settings != nullptr) {
        tag = m_settings->separator.c_str();
    }
    message->BeginTraceFormat(m_iFormat, m_bLocalTime, tag);
    for (const unsigned int slot : m_fieldOrder) {
        if (slot == 0) {
            break;
        }
        AppendField(*message, m_fields[slot - 1], kind);
    }
    message->EndTraceFormat();
    return true;
}

void CZoTraceData::AppendField(CZoErrLogMessage& message, const ZoTraceDataFieldInfo& field,
                               int kind) const {
    std::string line;
    const char* text = nullptr;
    switch (kind) {
        case kValues:
            text = field.value != nullptr ? field.value : "";
            break;
        case kNames:
            text = field.name;
            break;
        default: {
            const std::size_t length = m_iFormat == kColumns
                                           ? static_cast<std::size_t>(field.width)
                                           : std::char_traits<char>::length(field.name);
            line.assign(length, kind == kDashes ? '-' : '=');
            text = line.c_str();
        }
    }
    if (m_iFormat == kColumns) {
        message.FormatTraceField(text, field.width);
    } else {
        message.FormatTraceField(text, field.name);
    }
}
