#include <zoerrlog/message/ZoTraceLayout.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include <zoerrlog/message/ZoErrLogMessage.h>

using namespace zoerrlog::message;

std::size_t zoerrlog::message::RoomBesideValue(int format, std::size_t nameSize, int width,
                                               std::size_t tagSize) {
    constexpr std::size_t kBrackets = 2;
    constexpr std::size_t kElement = std::string_view("\t<></>\n").size();
    switch (format) {
        case kBracketed:
            return kBrackets;
        case kColumns:
            return kBetweenColumns.size() + static_cast<std::size_t>(width);
        case kDelimited:
            return tagSize;
        case kXml:
            return kElement + 2 * nameSize;
        default:
            return 0;
    }
}

void CZoErrLogMessage::BeginTraceFormat(int format, bool useLocalTime, const char* tag) {
    m_iTraceFormat = format;
    m_bUseLocalTime = useLocalTime;
    m_pszTraceTag = tag != nullptr ? tag : "";
    m_bFirstField = true;
    if (format == kXml) {
        m_text.append("<", m_pszTraceTag, ">\n");
    }
}

void CZoErrLogMessage::FormatTraceField(const char* value, const char* name) {
    // Null stands where the layout reads nothing.
    const std::string_view text(value != nullptr ? value : "");
    const std::string_view element(name != nullptr ? name : "");
    const std::string_view separator(m_pszTraceTag != nullptr ? m_pszTraceTag : "");
    char* const start = m_text.prepare(
        text.size() + RoomBesideValue(m_iTraceFormat, element.size(), 0, separator.size()));
    char* end = start;
    switch (m_iTraceFormat) {
        case kBracketed:
            end = PutBracketed(start, text);
            break;
        case kDelimited:
            end = PutDelimited(start, text, separator, m_bFirstField);
            m_bFirstField = false;
            break;
        case kXml:
            end = PutElement(start, text, element);
            break;
        default:
            break;
    }
    m_text.commit(static_cast<std::size_t>(end - start));
}

void CZoErrLogMessage::FormatTraceField(const char* value, int width) {
    const auto columnSize = static_cast<std::size_t>(std::max(width, 0));
    char* const start = m_text.prepare(columnSize + kBetweenColumns.size());
    const std::string_view text(value, strnlen(value, columnSize));
    const char* const end = PutColumn(start, text, columnSize, m_bFirstField);
    m_bFirstField = false;
    m_text.commit(static_cast<std::size_t>(end - start));
}

void CZoErrLogMessage::EndTraceFormat() {
    if (m_iTraceFormat == kXml) {
        m_text.append("</", m_pszTraceTag, ">\n");
    } else {
        m_text.push_back('\n');
    }
}
