#ifndef ZOERRLOG_LOGGER_ZOINITLOGGER_H
#define ZOERRLOG_LOGGER_ZOINITLOGGER_H

#include <zoerrlog/base/ZoExport.h>

/// Starts tracing of the default logger to a file, in one call.
///
/// `maxSizeMB` above 0 makes the file roll over at that size, in megabytes of 2^20 bytes; otherwise
/// it only grows. An existing file is continued when `bAppend` is true, and becomes a backup when
/// it is false. `maxBackups` backups are kept, or all for 0. `format` is the layout of the lines, 0
/// to 3; `separator` that of layout 2, an empty one counting as none. `configFile` is the trace
/// configuration file, `traceFile` the file to write. No text may be null; all are copied.
///
/// True when tracing is on. False without any change when `configFile` or `traceFile` is empty;
/// false otherwise when the configuration or the trace file cannot be used: the choice of local
/// time is then set all the same, and earlier tracing may have ended (see CZoLogger::EnableTrace).
/// The error and audit channels are left alone. Any thread may call it.
extern "C" ZOERRLOG_EXPORT bool ZoInitLogger(bool bAppend, bool bUseLocalTime, int maxSizeMB,
                                             int format, const char* separator,
                                             const char* configFile, const char* traceFile,
                                             int maxBackups);

#endif
