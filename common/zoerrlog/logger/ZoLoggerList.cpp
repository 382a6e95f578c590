#include <zoerrlog/logger/ZoLoggerList.h>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/platform/Lifetime.h>

/// The registry of the process: lets the process-lasting storage make it and end it.
struct ZoLoggerListAccess {
    struct Registry : CZoLoggerList {
        void CloseForExit() { CZoLoggerList::CloseForExit(); }
    };
};

CZoLoggerList* theLoggerList() {
    // Made before the list, and so gone after it: named loggers need the default one.
    theLogger();
    static zoerrlog::platform::ProcessLasting<ZoLoggerListAccess::Registry> list;
    return &list.Get();
}

CZoLogger* getMyLogger(const char* name) {
    CZoLoggerList& list = *theLoggerList();
    CZoLogger* const logger = list.GetLogger(name);
    return logger != nullptr ? logger : list.AddLogger(name);
}

bool removeMyLogger(const char* name) {
    return theLoggerList()->RemoveLogger(name);
}

CZoLoggerList::CZoLoggerList() = default;

CZoLoggerList::~CZoLoggerList() {
    const CZoErrLogAutoWriter hold(m_guard);
    while (m_pLoggers != nullptr && !m_pLoggers->empty()) {
        m_pLoggers->erase(m_pLoggers->begin());
    }
}

CZoLogger* CZoLoggerList::GetLogger(const char* name) {
    if (name == nullptr) {
        return nullptr;
    }
    const CZoErrLogAutoReader hold(m_guard);
    if (m_pLoggers == nullptr) {
        return nullptr;
    }
    const auto found = m_pLoggers->find(std::string_view(name));
    return found != m_pLoggers->end() ? found->second.get() : nullptr;
}

CZoLogger* CZoLoggerList::AddLogger(const char* name) {
    if (name == nullptr || *name == '\0') {
        return nullptr;
    }
    const CZoErrLogAutoWriter hold(m_guard);
    if (m_pLoggers == nullptr) {
        m_pLoggers = std::make_unique<Loggers>();
    }
    const auto place = m_pLoggers->lower_bound(std::string_view(name));
    if (place != m_pLoggers->end() && place->first == name) {
        return place->second.get();
    }
    std::unique_ptr<CZoLogger> logger(new CZoLogger);
    return m_pLoggers->emplace_hint(place, name, std::move(logger))->second.get();
}

bool CZoLoggerList::RemoveLogger(const char* name) {
    const CZoErrLogAutoWriter hold(m_guard);
    if (m_pLoggers == nullptr) {
        return true;
    }
    const auto found =
        name != nullptr ? m_pLoggers->find(std::string_view(name)) : m_pLoggers->end();
    if (found == m_pLoggers->end()) {
        return false;
    }
    m_pLoggers->erase(found);
    return true;
}

void CZoLoggerList::CloseForExit() {
    // Threads that still run may look for loggers: the list and its loggers stay.
    if (!m_guard.LockForExit()) {
        return;
    }
    if (m_pLoggers != nullptr) {
        for (const auto& [name, logger] : *m_pLoggers) {
            logger->CloseForExit();
        }
    }
    m_guard.Unlock();
}
