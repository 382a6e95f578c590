#ifndef ZOERRLOG_TRACE_ZOTHREADSTATE_H
#define ZOERRLOG_TRACE_ZOTHREADSTATE_H

#include <zoerrlog/base/ZoExport.h>

// What every thread has of its own beside its trace records. Each operation speaks of the calling
// thread alone and may be called from any thread.

/// Suppresses tracing on its thread while it lives; destroyed on the thread that made it.
///
/// The library's loggers do not look at the suppression: code that traces asks isTracing(), so that
/// tracing does not trace itself. Suppression does not nest: the end of an inner object allows
/// tracing again while an outer one still lives.
class ZOERRLOG_EXPORT CZoTraceSupresser {
public:
    CZoTraceSupresser();
    ~CZoTraceSupresser();
    CZoTraceSupresser(const CZoTraceSupresser&) = default;
    CZoTraceSupresser& operator=(const CZoTraceSupresser&);

    /// True unless tracing is suppressed on this thread.
    static bool isTracing();
    /// Allows (true) or suppresses (false) tracing on this thread.
    static void setTracing(bool on);
};

/// A pointer of the host's that the library keeps for each thread, and never reads through.
class ZOERRLOG_EXPORT CZoRequestContext {
public:
    CZoRequestContext() = default;
    ~CZoRequestContext() = default;
    CZoRequestContext(const CZoRequestContext&) = default;
    CZoRequestContext& operator=(const CZoRequestContext&);

    /// The pointer last stored on this thread, null at first.
    static void* GetRequestContextData();
    static void SetRequestContextData(void* data);
};

/// Stores 0 in `*key`, which must not be null.
ZOERRLOG_EXPORT void initializeThreadKey(unsigned long* key);
/// Stores 0 in `*id`, which must not be null.
ZOERRLOG_EXPORT void initializeThreadId(unsigned long* id);
/// The low 32 bits of `id` as an int.
ZOERRLOG_EXPORT int getThreadId(unsigned long id);

#endif
