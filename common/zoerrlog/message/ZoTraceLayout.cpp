#include <zoerrlog/message/ZoTraceLayout.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include <zoerrlog/message/ZoErrLogMessage.h>

using namespace zoerrlog::message;

namespace {

constexpr std::string_view kBetweenColumns = "  ";

}  // namespace

void CZoErrLogMessage::BeginTraceFormat(int format, bool useLocalTime, const char* tag) {
    m_iTraceFormat = format;
    m_bUseLocalTime = useLocalTime;
    m_pszTraceTag = tag != nullptr ? tag : "";
    m_bFirstField = true;
    if (format == kXml) {
        m_text.append({"<", m_pszTraceTag, ">\n"});
    }
}

void CZoErrLogMessage::FormatTraceField(const char* value, const char* name) {
    switch (m_iTraceFormat) {
        case kBracketed: {
            // By hand: this is done for every field of every line, and single bytes as parts of
            // their own would double its cost.
            const std::string_view text(value);
            char* next = m_text.prepare(text.size() + 2);
            *next++ = '[';
            next = std::copy(text.begin(), text.end(), next);
            *next = ']';
            m_text.commit(text.size() + 2);
            break;
        }
        case kDelimited:
            m_text.append({m_bFirstField ? "" : m_pszTraceTag, value});
            m_bFirstField = false;
            break;
        case kXml:
            m_text.append({"\t<", name, ">", value, "</", name, ">\n"});
            break;
        default:
            break;
    }
}

void CZoErrLogMessage::FormatTraceField(const char* value, int width) {
    const auto columnSize = static_cast<std::size_t>(std::max(width, 0));
    const std::string_view text(value, strnlen(value, columnSize));
    const std::string_view gap = m_bFirstField ? std::string_view() : kBetweenColumns;
    m_bFirstField = false;
    char* next = m_text.prepare(gap.size() + columnSize);
    next = std::copy(gap.begin(), gap.end(), next);
    next = std::copy(text.begin(), text.end(), next);
    std::fill_n(next, columnSize - text.size(), ' ');
    m_text.commit(gap.size() + columnSize);
}

void CZoErrLogMessage::EndTraceFormat() {
    if (m_iTraceFormat == kXml) {
        m_text.append({"</", m_pszTraceTag, ">\n"});
    } else {
        m_text.push_back('\n');
    }
}
