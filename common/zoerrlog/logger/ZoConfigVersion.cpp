#include <zoerrlog/logger/ZoConfigVersion.h>

#include <algorithm>
#include <atomic>

#include <zoerrlog/logger/ZoLogger.h>

std::atomic<int> CZoLogger::m_iConfigVersion{0};

namespace zoerrlog::logger {
namespace {

// Loggers install configurations under guards of their own, which do not exclude each other.
std::atomic<int> g_lastVersion{0};

}  // namespace

int NextConfigVersion() noexcept {
    int last = g_lastVersion.load();
    int next = 0;
    do {
        next = std::max(last, CZoLogger::m_iConfigVersion.load()) + 1;
    } while (!g_lastVersion.compare_exchange_weak(last, next));
    return next;
}

void NoteDroppedVersion(int version) noexcept {
    int noted = CZoLogger::m_iConfigVersion.load();
    while (noted < version && !CZoLogger::m_iConfigVersion.compare_exchange_weak(noted, version)) {
    }
}

}  // namespace zoerrlog::logger
