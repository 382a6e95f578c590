#include <zoerrlog/output/ZoConsoleOutput.h>

#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/output/ZoOutputTypes.h>
#include <zoerrlog/platform/Console.h>
#include <zoerrlog/platform/Lifetime.h>

CZoConsoleOutput::CZoConsoleOutput() : consoleHandle(nullptr) {
    SetType(zoerrlog::output::kConsole);
}

CZoConsoleOutput::~CZoConsoleOutput() = default;

bool CZoConsoleOutput::Open() {
    if (consoleHandle != nullptr) {
        return false;
    }
    consoleHandle = CZoConsoleManager::Instance().AcquireConsole();
    return consoleHandle != nullptr;
}

bool CZoConsoleOutput::Log(CZoErrLogMessage& message) {
    if (consoleHandle == nullptr) {
        return false;
    }
    const int length = message.GetStringLen();
    return zoerrlog::platform::WriteConsole(consoleHandle, message.GetBuffer(),
                                            static_cast<std::size_t>(length)) >= length;
}

bool CZoConsoleOutput::Close() {
    if (consoleHandle == nullptr) {
        return false;
    }
    CZoConsoleManager::Instance().ReleaseConsole();
    consoleHandle = nullptr;
    return true;
}

bool CZoConsoleOutput::SetParams() {
    return true;
}

/// Lets the process-lasting storage make the manager.
struct ZoConsoleManagerAccess {
    struct Manager : CZoConsoleManager {
        Manager() = default;
    };
};

CZoConsoleManager::CZoConsoleManager() : refCount(0), consoleHandle(nullptr) {
}

CZoConsoleManager::~CZoConsoleManager() = default;

CZoConsoleManager& CZoConsoleManager::Instance() {
    static zoerrlog::platform::ProcessLasting<ZoConsoleManagerAccess::Manager> manager;
    return manager.Get();
}

void* CZoConsoleManager::AcquireConsole() {
    const CZoErrLogAutoCS hold(lock);
    if (refCount == 0) {
        consoleHandle = zoerrlog::platform::OpenConsole();
    }
    if (consoleHandle != nullptr) {
        ++refCount;
    }
    return consoleHandle;
}

void CZoConsoleManager::ReleaseConsole() {
    const CZoErrLogAutoCS hold(lock);
    if (--refCount == 0) {
        zoerrlog::platform::FreeConsole(consoleHandle);
        consoleHandle = nullptr;
    }
}
