#ifndef ZOERRLOG_TRACE_ZODATAFIELDS_H
#define ZOERRLOG_TRACE_ZODATAFIELDS_H

namespace zoerrlog::trace {

/// Numbers of the data fields that the library fills or treats in a way of their own, and of those
/// that its Java side sets.
enum DataField : unsigned int {
    kMessage = 0,
    kSrcFile = 1,
    kPid = 2,
    kTid = 3,
    kDate = 4,
    kTime = 5,
    kPreciseTime = 6,
    kFunction = 7,
    kTransactionId = 18
};

}  // namespace zoerrlog::trace

#endif
