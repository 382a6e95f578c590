#include <zoerrlog/base/ZoFile.h>

#include <zoerrlog/base/ZoOpenFlags.h>
#include <zoerrlog/platform/File.h>
#include <zoi18n/zoi18n.h>

using namespace zoerrlog::base;
using zoerrlog::platform::kNoDescriptor;

namespace {

constexpr int kFailed = -1;

enum Mode { kWrite = 0, kWriteToo = 1, kAppend = 2, kRead = 3 };

bool FlagsOf(int mode, int* flags) {
    switch (mode) {
        case kWrite:
        case kWriteToo:
            *flags = kOpenTruncated;
            return true;
        case kAppend:
            *flags = kOpenAppending;
            return true;
        case kRead:
            *flags = kOpenReading;
            return true;
        default:
            return false;
    }
}

}  // namespace

CZoFile::CZoFile() : m_fd(kNoDescriptor) {
}

CZoFile::~CZoFile() {
    CloseFile();
}

bool CZoFile::OpenFile(const char* name, int mode) {
    int flags = 0;
    if (name == nullptr || !FlagsOf(mode, &flags)) {
        return false;
    }
    CloseFile();
    m_fd = ZoOpen(name, flags, kOwnerReadWrite);
    return m_fd != kNoDescriptor;
}

void CZoFile::CloseFile() {
    zoerrlog::platform::CloseFile(m_fd);
    m_fd = kNoDescriptor;
}

int CZoFile::ReadLine(void* buffer, int size) {
    if (buffer == nullptr || m_fd == kNoDescriptor) {
        return kFailed;
    }
    char* const text = static_cast<char*>(buffer);
    int stored = 0;
    while (stored < size) {
        // One byte a call: nothing behind the line is taken from whoever else reads this file.
        const std::int64_t count = zoerrlog::platform::ReadFile(m_fd, text + stored, 1);
        if (count < 0) {
            return kFailed;
        }
        if (count == 0) {
            if (stored == 0) {
                return 0;
            }
            break;
        }
        if (text[stored++] == '\n') {
            text[stored] = '\0';
            return stored;
        }
    }
    text[stored] = '\0';
    return stored + 1;
}

int CZoFile::WriteFile(void* data, unsigned int length) {
    if (data == nullptr || m_fd == kNoDescriptor) {
        return kFailed;
    }
    return static_cast<int>(zoerrlog::platform::WriteFile(m_fd, data, length));
}
