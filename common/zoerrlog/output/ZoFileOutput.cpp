#include <zoerrlog/output/ZoFileOutput.h>

#include <cerrno>

#include <zoerrlog/base/ZoOpenFlags.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/output/ZoOutputTypes.h>
#include <zoerrlog/platform/File.h>
#include <zoi18n/zoi18n.h>

using namespace zoerrlog::base;
using namespace zoerrlog::output;
using zoerrlog::platform::kNoDescriptor;

namespace {

constexpr unsigned kMegabyteShift = 20;

}  // namespace

CZoFileOutput::CZoFileOutput()
    : fd(kNoDescriptor),
      maxBackups(0),
      maxSize(0),
      mode(Overwrite),
      rolloverDeferred(false),
      deferredSince(0),
      retiredFd(kNoDescriptor),
      lastBackupDate{},
      lastBackupNumber(0) {
    SetType(kFile);
}

CZoFileOutput::~CZoFileOutput() {
    CloseFile();
}

bool CZoFileOutput::SetParams(const char* name, int rolloverMode, int maxSizeMB, int backups) {
    if (name == nullptr || *name == '\0' || maxSizeMB < 0 || backups < 0 ||
        rolloverMode < Overwrite || rolloverMode > RolloverAtOpenAndBySize) {
        return false;
    }
    fileName = name;
    mode = rolloverMode;
    maxBackups = backups;
    maxSize = static_cast<std::uint32_t>(maxSizeMB) << kMegabyteShift;
    return true;
}

bool CZoFileOutput::Open() {
    CloseFile();
    if (!FileExists(fileName.c_str())) {
        return OpenFile(kCreate);
    }
    switch (mode) {
        case Overwrite:
            return OpenFile(kTruncate);
        case Append:
        case RolloverBySize:
            return OpenFile(kAppend);
        default:
            return Rollover();
    }
}

inline bool CZoFileOutput::LogMessage(std::string_view line) {
    const int descriptor = fd.load(std::memory_order_acquire);
    return descriptor >= 0 &&
           zoerrlog::platform::WriteFile(descriptor, line.data(), line.size()) >= 0;
}

bool CZoFileOutput::LogWithinLimit(std::string_view line) {
    const CZoErrLogAutoCS hold(lock);
    const int descriptor = fd.load(std::memory_order_relaxed);
    if (descriptor < 0) {
        return false;
    }
    const std::int64_t size = zoerrlog::platform::FileSize(descriptor);
    if (size < 0) {
        return false;
    }
    const auto total = static_cast<std::uint32_t>(line.size()) + static_cast<std::uint32_t>(size);
    const bool limitReached = total >= maxSize && !rolloverDeferred.load(std::memory_order_relaxed);
    if ((limitReached || RetryIsDue()) && !Rollover()) {
        return false;
    }
    return LogMessage(line);
}

// Inline, like LogMessage: see zoerrlog::platform::WriteFile.
inline bool CZoFileOutput::LogLine(std::string_view line) {
    if (IsSizeLimited()) {
        return LogWithinLimit(line);
    }
    if (RetryIsDue() && !RetryRollover()) {
        return false;
    }
    return LogMessage(line);
}

bool CZoFileOutput::Log(CZoErrLogMessage& message) {
    return LogLine({message.GetBuffer(), static_cast<std::size_t>(message.GetStringLen())});
}

bool CZoFileOutput::Log(const char* text) {
    return text != nullptr && LogLine(text);
}

bool CZoFileOutput::Close() {
    return CloseFile();
}

void CZoFileOutput::EnableBuffering(bool /*on*/) {
}

bool CZoFileOutput::IsBufferingEnabled() {
    return false;
}

bool CZoFileOutput::IsBufferingSupported() {
    return false;
}

void CZoFileOutput::SetHeaders(CZoErrLogMessage& first, CZoErrLogMessage& second) {
    if (first.GetStringLen() > 0 && second.GetStringLen() > 0) {
        header1 = first.GetBuffer();
        header2 = second.GetBuffer();
    }
}

bool CZoFileOutput::IsSizeLimited() const {
    return mode == RolloverBySize || mode == RolloverAtOpenAndBySize;
}

bool CZoFileOutput::FileExists(const char* name) const {
    if (ZoAccess(name, kZoAccessExists) == 0 || errno != ENOENT) {
        return true;
    }
    errno = 0;
    return false;
}

bool CZoFileOutput::OpenFile(int how) {
    constexpr int kFlags[] = {kOpenNew, kOpenTruncated, kOpenAppending};
    const int descriptor = ZoOpen(fileName.c_str(), kFlags[how], kOwnerReadWrite);
    fd.store(descriptor, std::memory_order_release);
    return descriptor != kNoDescriptor;
}

bool CZoFileOutput::CloseFile() {
    zoerrlog::platform::CloseFile(fd.exchange(kNoDescriptor));
    zoerrlog::platform::CloseFile(retiredFd);
    retiredFd = kNoDescriptor;
    return true;
}
