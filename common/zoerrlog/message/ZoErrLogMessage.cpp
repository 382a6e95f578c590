#include <zoerrlog/message/ZoErrLogMessage.h>

#include <charconv>
#include <iterator>
#include <limits>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/message/ZoMessageId.h>
#include <zoerrlog/message/ZoProlog.h>

CZoErrLogMessage::CZoErrLogMessage() : CZoErrLogMessage(theLogger()->ShouldUseLocalTime()) {
}

CZoErrLogMessage::CZoErrLogMessage(bool useLocalTime)
    : m_iMessageType(0),
      m_iTraceFormat(0),
      m_bUseLocalTime(useLocalTime),
      m_pszTraceTag(nullptr),
      m_bFirstField(false),
      m_iSeverity(0),
      m_dwMessageId(0) {
}

CZoErrLogMessage::~CZoErrLogMessage() = default;

bool CZoErrLogMessage::CleanUpMessage() {
    m_text.clear_and_shrink();
    m_iMessageType = 0;
    return true;
}

bool CZoErrLogMessage::FormatLogProlog(const char* sourceFile, int line, int messageType) {
    char lineNumber[1 + std::numeric_limits<int>::digits10 + 1];
    const char* end = lineNumber;
    if (line > 0) {
        lineNumber[0] = ':';
        end = std::to_chars(lineNumber + 1, std::end(lineNumber), line).ptr;
    }
    m_iMessageType = messageType;
    m_text.clear();
    m_text.append(zoerrlog::message::PrologStart(m_bUseLocalTime),
                  sourceFile != nullptr ? PathnameFindFilePart(sourceFile) : "",
                  std::string_view(lineNumber, static_cast<std::size_t>(end - lineNumber)), "]");
    return true;
}

const char* CZoErrLogMessage::GetBuffer() {
    return m_text.c_str();
}

const char* CZoErrLogMessage::ReleaseBuffer() {
    return m_text.c_str();
}

int CZoErrLogMessage::GetBufferLen() {
    return static_cast<int>(m_text.size());
}

int CZoErrLogMessage::GetStringLen() {
    return GetBufferLen();
}

void CZoErrLogMessage::FreeBuffer(char* /*text*/) {
}

const char* CZoErrLogMessage::GetMsgSeverity() {
    return zoerrlog::message::ShortSeverityWord(m_iSeverity);
}

CpaArgList& CZoErrLogMessage::GetArgList() {
    return m_argList;
}
