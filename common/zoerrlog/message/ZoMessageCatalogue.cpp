#include <algorithm>
#include <cstring>
#include <string_view>

#include <zoerrlog/message/ZoCatalogueEntry.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/message/ZoMessageId.h>
#include <zoi18n/zoi18n.h>

namespace {

using namespace zoerrlog::message;

constexpr std::size_t kLongestText = 4095;
// The catalogue's formatter is told one byte less than there is, so that the text ends in a zero
// byte whether or not the formatter counts the terminator.
constexpr std::size_t kTextBufferSize = kLongestText + 2;
constexpr const char* kTraceLocale = "en";

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

// Writes the pattern with the arguments filled in, at most `dstSize` bytes with the terminator, and
// returns its length.
std::size_t FillPattern(std::string_view pattern, const CpaArgList& args, char* dst,
                        std::size_t dstSize) {
    if (args.argc == 0) {
        const std::string_view text = Cut(pattern, dstSize - 1);
        *ZoCopyShort(dst, text) = '\0';
        return text.size();
    }
    CZoXlate::Text texts[CpaArgList::MAX_ARGC];
    for (unsigned long long i = 0; i < args.argc; ++i) {
        texts[i] = {args.argument(i).data(), args.argument(i).size()};
    }
    dst[0] = '\0';
    return CZoXlate::FormatText(dst, dstSize - 1, {pattern.data(), pattern.size()}, args.argc,
                                texts);
}

// As a rule the text fits behind the prolog and is written where it stays.
void AppendFilledPattern(ZoByteString& text, std::string_view pattern, const CpaArgList& args) {
    // A text that ends this near to the end of its room may have been cut.
    constexpr std::size_t kMargin = 8;
    const std::size_t room = std::min(text.room(), kTextBufferSize);
    if (room > kMargin) {
        const std::size_t length = FillPattern(pattern, args, text.prepare(0), room);
        if (length < room - kMargin) {
            text.commit(length);
            return;
        }
        text.commit(0);
    }
    char whole[kTextBufferSize];
    const std::size_t length = FillPattern(pattern, args, whole, sizeof(whole));
    text.append(Cut({whole, length}, kLongestText));
}

}  // namespace

const char* CZoErrLogMessage::PreformatMessage(unsigned int id, const char* locale, char* dst,
                                               size_t dstSize) {
    TakeMessageId(id);
    const MessageName name = FindMessageName(m_dwMessageId);
    if (dst != nullptr && dstSize != 0) {
        BundleHold bundle;
        FillPattern(FindPattern(name, locale, bundle), m_argList, dst, dstSize);
    }
    return name.key;
}

const char* CZoErrLogMessage::FormatMessageA(unsigned int id) {
    TakeMessageId(id);
    const RememberedMessage message(m_dwMessageId, m_iSeverity, ZoGetAdminLocale());
    message.AppendHead(m_text);
    AppendFilledPattern(m_text, message.Pattern(), m_argList);
    m_text.push_back('\n');
    return GetBuffer();
}

const char* CZoErrLogMessage::FormatMessageForTrace(unsigned int id) {
    TakeMessageId(id);
    const RememberedMessage message(m_dwMessageId, m_iSeverity, kTraceLocale);
    m_text.clear();
    message.AppendKey(m_text);
    AppendFilledPattern(m_text, message.Pattern(), m_argList);
    return GetBuffer();
}

// 0 repeats the last one.
void CZoErrLogMessage::TakeMessageId(unsigned int id) {
    if (id != 0) {
        m_dwMessageId = id;
        m_iSeverity = SeverityOf(id);
    }
}
