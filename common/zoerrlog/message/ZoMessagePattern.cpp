#include <string>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/message/ZoBoundedFormat.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/message/ZoMessageId.h>

namespace {

using namespace zoerrlog::message;

constexpr std::size_t kTextBufferSize = 4096;
constexpr std::string_view kMarker = "%s";

const char* FetchEntry(int id) {
    return theLogger()->FetchMsg(static_cast<unsigned int>(id));
}

void AppendSeverity(ZoByteString& text, int id) {
    text.append("[", SeverityWord(SeverityOf(static_cast<unsigned int>(id))), "] ");
}

// Each search starts where the last argument was put in, so a marker inside an argument takes the
// next one.
std::string FillMarkers(std::string text, char** args, int argCount) {
    std::size_t start = 0;
    for (int i = 0; i < argCount; ++i) {
        const std::size_t marker = text.find(kMarker, start);
        if (marker == std::string::npos) {
            break;
        }
        text.replace(marker, kMarker.size(), args[i] != nullptr ? args[i] : "");
        start = marker;
    }
    return text;
}

}  // namespace

bool CZoErrLogMessage::FormatLogMessage(int id, char** args, int argCount) {
    const char* const entry = FetchEntry(id);
    if (entry == nullptr) {
        return false;
    }
    AppendSeverity(m_text, id);
    m_text.append(args != nullptr ? FillMarkers(entry, args, argCount) : entry);
    m_text.push_back('\n');
    return true;
}

bool CZoErrLogMessage::FormatLogMessageVA(int id, va_list args) {
    const char* const entry = FetchEntry(id);
    if (entry == nullptr) {
        return false;
    }
    AppendSeverity(m_text, id);
    AppendPattern(entry, args);
    m_text.push_back('\n');
    return true;
}

bool CZoErrLogMessage::FormatLogMessage(int id, ...) {
    va_list args;
    va_start(args, id);
    const bool found = FormatLogMessageVA(id, args);
    va_end(args);
    return found;
}

bool CZoErrLogMessage::FormatLogMessageForTrace(int id, ...) {
    m_iSeverity = SeverityOf(static_cast<unsigned int>(id));
    const char* const entry = FetchEntry(id);
    if (entry == nullptr) {
        return false;
    }
    m_text.push_back(' ');
    va_list args;
    va_start(args, id);
    AppendPattern(entry, args);
    va_end(args);
    return true;
}

void CZoErrLogMessage::AppendPattern(const char* pattern, va_list args) {
    char text[kTextBufferSize];
    FormatBounded(text, sizeof(text), pattern, args);
    m_text.append(text);
}
