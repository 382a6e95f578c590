#ifndef ZOERRLOG_BENCH_PATHS_LINE_TEXTS_H
#define ZOERRLOG_BENCH_PATHS_LINE_TEXTS_H

/// What every line that is measured says. The values are defined in another source, so that no
/// caller's compiler knows their lengths: they reach each library as a host's would, at run time.
namespace bench {

extern const char* const kSourceFile;
extern const int kSourceLine;
extern const char* const kMessageKey;
extern const char* const kFunction;
extern const char* const kUser;
extern const char* const kUnwantedUser;  // whom the trace filter rejects
extern const char* const kAddress;
extern const char* const kPort;
extern const char* const kStatus;
extern const int kAttempt;
extern const char* const kAttemptPort;

}  // namespace bench

#endif
