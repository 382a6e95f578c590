#ifndef ZOERRLOG_OUTPUT_ZOOPENFLAGS_H
#define ZOERRLOG_OUTPUT_ZOOPENFLAGS_H

#include <zoi18n/zoi18n.h>

namespace zoerrlog::output {

// How log files are opened.
constexpr int kOpenTruncated = kZoOpenWriteOnly | kZoOpenCreate | kZoOpenTruncate;
constexpr int kOpenAppending = kZoOpenWriteOnly | kZoOpenAppend | kZoOpenCreate;
constexpr int kOpenNew = kOpenAppending | kZoOpenTruncate;

constexpr int kOwnerReadWrite = kZoPermissionOwnerRead | kZoPermissionOwnerWrite;

}  // namespace zoerrlog::output

#endif
