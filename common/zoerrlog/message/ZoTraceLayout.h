#ifndef ZOERRLOG_MESSAGE_ZOTRACELAYOUT_H
#define ZOERRLOG_MESSAGE_ZOTRACELAYOUT_H

namespace zoerrlog::message {

/// Layouts of a trace line.
enum TraceLayout { kBracketed = 0, kColumns = 1, kDelimited = 2, kXml = 3 };

}  // namespace zoerrlog::message

#endif
