#ifndef ZOERRLOG_TRACE_ZOTHREADTRACEDATA_H
#define ZOERRLOG_TRACE_ZOTHREADTRACEDATA_H

#include <zoerrlog/base/ZoExport.h>

class CZoTraceData;

/// An entry of the process-wide pool of trace records.
struct ThreadTraceData {
    CZoTraceData* m_pTraceData;  ///< owned by the entry
    bool m_bFree;                ///< true while nobody holds the entry
};

/// Hands a free entry to the caller; never null. Its record is as new. The pool grows by 30
/// entries when none is free, and is gone with the last logger of the process.
///
/// Loggers take the entries of their threads by themselves and give them back when a thread ends
/// or the logger goes. A caller who takes one here keeps it until it sets m_bFree, after which it
/// must not touch the entry or its record again. May throw std::bad_alloc.
ZOERRLOG_EXPORT ThreadTraceData* GetThreadTraceData();

#endif
