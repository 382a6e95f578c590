#ifndef ZOERRLOG_MESSAGE_ZOPROLOG_H
#define ZOERRLOG_MESSAGE_ZOPROLOG_H

#include <string_view>

namespace zoerrlog::message {

/// "[pid/tid][date][" of the calling thread at this moment. The text is the thread's own and valid
/// until its next call; it is built once a second and thread.
std::string_view PrologStart(bool localTime) noexcept;

}  // namespace zoerrlog::message

#endif
