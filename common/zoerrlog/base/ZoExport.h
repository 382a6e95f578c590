#ifndef ZOERRLOG_BASE_ZOEXPORT_H
#define ZOERRLOG_BASE_ZOEXPORT_H

// Marks what hosts and component libraries may call; everything else stays inside the library.
#define ZOERRLOG_EXPORT __attribute__((visibility("default")))

// Lets the compiler check the arguments of a printf-style operation against its pattern.
// Positions count from 1; a member function's object is argument 1. `first` is 0 for a va_list.
#define ZOERRLOG_PRINTF(pattern, first) __attribute__((format(printf, pattern, first)))

#endif
