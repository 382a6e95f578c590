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
    if (m_settings != nullptr) {
        if (kind == kValues) {
            AppendValues(*message);
        } else {
            AppendHeading(*message, kind);
        }
    }
    message->EndTraceFormat();
    return true;
}

void CZoTraceData::AppendValues(CZoErrLogMessage& message) const {
    AppendFields(message, m_values.TotalLength(), [this](const ZoTraceSettings::Column& column) {
        return m_values.Get(column.field);
    });
}

void CZoTraceData::AppendHeading(CZoErrLogMessage& message, int kind) const {
    const std::string line(m_settings->widestColumn, kind == kDashes ? '-' : '=');
    const std::size_t textSize = line.size() * m_settings->columns.size();
    AppendFields(message, textSize, [&](const ZoTraceSettings::Column& column) {
        const std::size_t length =
            m_iFormat == kColumns ? static_cast<std::size_t>(column.width) : column.name.size();
        return kind == kNames ? column.name : std::string_view(line).substr(0, length);
    });
}

// Appends the text that `textOf` gives for each column, all of them together at most `textSize`
// bytes. Room is made for the whole line at once, instead of a look at it for every part.
template <typename TextOf>
void CZoTraceData::AppendFields(CZoErrLogMessage& message, std::size_t textSize,
                                TextOf textOf) const {
    const ZoTraceSettings& settings = *m_settings;
    char* const start = message.m_text.prepare(textSize + settings.roomBesideValues);
    char* next = start;
    bool first = true;
    switch (m_iFormat) {
        case kBracketed:
            for (const ZoTraceSettings::Column& column : settings.columns) {
                next = PutBracketed(next, textOf(column));
            }
            break;
        case kColumns:
            for (const ZoTraceSettings::Column& column : settings.columns) {
                const auto columnSize = static_cast<std::size_t>(column.width);
                next = PutColumn(next, textOf(column), columnSize, first);
                first = false;
            }
            break;
        case kDelimited:
            for (const ZoTraceSettings::Column& column : settings.columns) {
                next = PutDelimited(next, textOf(column), settings.separator, first);
                first = false;
            }
            break;
        case kXml:
            for (const ZoTraceSettings::Column& column : settings.columns) {
                next = PutElement(next, textOf(column), column.name);
            }
            break;
        default:
            break;
    }
    message.m_text.commit(static_cast<std::size_t>(next - start));
}
