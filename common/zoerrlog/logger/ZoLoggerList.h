#ifndef ZOERRLOG_LOGGER_ZOLOGGERLIST_H
#define ZOERRLOG_LOGGER_ZOLOGGERLIST_H

#include <functional>
#include <map>
#include <memory>
#include <string>

#include <zoerrlog/base/ZoExport.h>
#include <zoerrlog/base/ZoGuard.h>

class CZoLogger;

/// The named loggers of the process, ordered by name, byte by byte. Names are case-sensitive.
///
/// A named logger lives from the first request for its name until it is removed, or until the
/// library is unloaded or the process has ended. Any thread may call any operation at any time;
/// whoever removes a logger sees to it that no other thread still uses it.
class ZOERRLOG_EXPORT CZoLoggerList {
public:
    CZoLoggerList();
    /// Destroys every logger, in the order of names.
    virtual ~CZoLoggerList();
    CZoLoggerList(const CZoLoggerList&) = delete;
    CZoLoggerList& operator=(const CZoLoggerList&) = delete;

    /// The logger called `name`; null when there is none, or for null.
    CZoLogger* GetLogger(const char* name);
    /// The logger called `name`, made if there is none; null for a null or empty name. The list
    /// keeps a copy of the name. May throw std::bad_alloc, and has then added nothing.
    CZoLogger* AddLogger(const char* name);
    /// Removes and destroys the logger called `name`, closing its outputs. True when it was there,
    /// and also when no logger has ever been added; otherwise false.
    bool RemoveLogger(const char* name);

private:
    friend struct ZoLoggerListAccess;
    using Loggers = std::map<std::string, std::unique_ptr<CZoLogger>, std::less<>>;

    void CloseForExit();

    std::unique_ptr<Loggers> m_pLoggers;  // null until the first logger is added
    CZoErrLogGuard m_guard;
};

/// The registry of the process, made by the first call; never null.
ZOERRLOG_EXPORT CZoLoggerList* theLoggerList();
/// The logger called `name`, made if there is none; null for a null or empty name.
ZOERRLOG_EXPORT CZoLogger* getMyLogger(const char* name);
/// CZoLoggerList::RemoveLogger of the process's registry.
ZOERRLOG_EXPORT bool removeMyLogger(const char* name);

#endif
