#include <algorithm>
#include <memory>
#include <string_view>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/message/ZoMessageId.h>
#include <zoi18n/zoi18n.h>
#include <zoxlate/zoxlate.h>

namespace {

using namespace zoerrlog::message;

constexpr std::size_t kLongestText = 4095;
// The catalogue's formatter is told one byte less than there is, so that the text ends in a zero
// byte whether or not the formatter counts the terminator.
constexpr std::size_t kTextBufferSize = kLongestText + 2;
constexpr const char* kTraceLocale = "en";

struct ReleaseBundle {
    void operator()(CZoXlate* bundle) const { bundle->Release(); }
};
using Bundle = std::unique_ptr<CZoXlate, ReleaseBundle>;

/// Where a message's text comes from; the pattern may belong to the bundle.
struct CatalogueEntry {
    const char* key;
    const char* pattern;
    Bundle bundle;
};

CatalogueEntry FindEntry(unsigned int id, const char* locale) {
    if (ComponentNumber(id) == kBuiltInComponent) {
        return {"zo-log-00000", "{0}", nullptr};
    }
    const CZoLogger& logger = *theLogger();
    const char* const bundleName = logger.GetMsgBundle(id);
    if (bundleName == nullptr) {
        return {"zo-log-00001", "missing component library", nullptr};
    }
    const char* const key = logger.FetchMsg(id);
    if (key == nullptr) {
        return {"zo-log-00002", "missing message key", nullptr};
    }
    Bundle bundle(CZoXlate::GetBundle(bundleName, locale));
    const char* const text = bundle != nullptr ? bundle->GetText(key) : nullptr;
    return {key, text != nullptr ? text : key, std::move(bundle)};
}

bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// The first `limit` bytes of `text`, or a little less: no UTF-8 character is cut in two.
std::string_view Cut(std::string_view text, std::size_t limit) {
    constexpr std::size_t kLongestCharacter = 4;
    if (text.size() <= limit) {
        return text;
    }
    std::size_t length = limit;
    while (length > 0 && limit - length < kLongestCharacter && ContinuesCharacter(text[length])) {
        --length;
    }
    return text.substr(0, ContinuesCharacter(text[length]) ? limit : length);
}

void CopyText(const char* text, char* dst, std::size_t dstSize) {
    const std::string_view copied = Cut(text, dstSize - 1);
    std::copy(copied.begin(), copied.end(), dst);
    dst[copied.size()] = '\0';
}

std::string_view TextIn(const char* buffer) {
    return Cut(buffer, kLongestText);
}

}  // namespace

const char* CZoErrLogMessage::PreformatMessage(unsigned int id, const char* locale, char* dst,
                                               size_t dstSize) {
    if (id != 0) {
        m_dwMessageId = id;
        m_iSeverity = SeverityOf(id);
    }
    const CatalogueEntry entry = FindEntry(m_dwMessageId, locale);
    if (dst == nullptr || dstSize == 0) {
        return entry.key;
    }
    if (m_argList.argc == 0) {
        CopyText(entry.pattern, dst, dstSize);
        return entry.key;
    }
    const char* argv[CpaArgList::MAX_ARGC];
    const size_t argc = m_argList.toArgv(argv);
    dst[0] = '\0';
    dst[dstSize - 1] = '\0';
    CZoXlate::FormatMessageA(dst, dstSize - 1, entry.pattern, argc, argv);
    return entry.key;
}

const char* CZoErrLogMessage::FormatMessageA(unsigned int id) {
    char text[kTextBufferSize];
    const char* const key = PreformatMessage(id, ZoGetAdminLocale(), text, sizeof(text));
    m_text.append({"[", SeverityWord(m_iSeverity), "][", key, "] ", TextIn(text), "\n"});
    return GetBuffer();
}

const char* CZoErrLogMessage::FormatMessageForTrace(unsigned int id) {
    char text[kTextBufferSize];
    const char* const key = PreformatMessage(id, kTraceLocale, text, sizeof(text));
    m_text.clear();
    m_text.append({"[", key, "] ", TextIn(text)});
    return GetBuffer();
}
