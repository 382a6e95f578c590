#include <cstddef>
#include <memory>

#include <zoerrlog/message/ZoBoundedFormat.h>
#include <zoerrlog/message/ZoErrLogMessage.h>

using zoerrlog::message::FormatBounded;

namespace {

constexpr std::size_t kBlockSize = 4096;

bool IsEmpty(const char* text) {
    return text == nullptr || *text == '\0';
}

}  // namespace

const char* CZoErrLogMessage::FormatTraceMessage(const char* format, ...) {
    if (IsEmpty(format)) {
        return nullptr;
    }
    auto block = std::make_unique<char[]>(kBlockSize);
    va_list args;
    va_start(args, format);
    FormatBounded(block.get(), kBlockSize, format, args);
    va_end(args);
    return block.release();
}

void CZoErrLogMessage::FreeFormattedMessage(const char* text) {
    const std::unique_ptr<const char[]> owned(text);
}

bool CZoErrLogMessage::FormatAuditMessage(const char* format, ...) {
    if (IsEmpty(format)) {
        return false;
    }
    char text[kBlockSize];
    va_list args;
    va_start(args, format);
    const int length = FormatBounded(text, kBlockSize, format, args);
    va_end(args);
    if (length < static_cast<int>(kBlockSize)) {
        SetFormattedMessage(text);
        return true;
    }
    // Apart from the record's text, which may be among the arguments.
    const std::size_t size = static_cast<std::size_t>(length) + 1;
    const auto block = std::make_unique<char[]>(size);
    va_start(args, format);
    FormatBounded(block.get(), size, format, args);
    va_end(args);
    SetFormattedMessage(block.get());
    return true;
}

void CZoErrLogMessage::SetFormattedMessage(const char* text) {
    if (text != nullptr) {
        m_text.assign(text);
    }
}
