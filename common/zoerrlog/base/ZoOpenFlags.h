#ifndef ZOERRLOG_BASE_ZOOPENFLAGS_H
#define ZOERRLOG_BASE_ZOOPENFLAGS_H

#include <zoi18n/zoi18n.h>

namespace zoerrlog::base {

// How the library opens files.
constexpr int kOpenTruncated = kZoOpenWriteOnly | kZoOpenCreate | kZoOpenTruncate;
constexpr int kOpenAppending = kZoOpenWriteOnly | kZoOpenAppend | kZoOpenCreate;
constexpr int kOpenNew = kOpenAppending | kZoOpenTruncate;
constexpr int kOpenReading = kZoOpenReadOnly;

constexpr int kOwnerReadWrite = kZoPermissionOwnerRead | kZoPermissionOwnerWrite;

}  // namespace zoerrlog::base

#endif
