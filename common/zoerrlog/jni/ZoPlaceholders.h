#ifndef ZOERRLOG_JNI_ZOPLACEHOLDERS_H
#define ZOERRLOG_JNI_ZOPLACEHOLDERS_H

#include <span>
#include <string>
#include <string_view>

namespace zoerrlog::jni {

/// `pattern` with each "%s" replaced by the next of `arguments`, or by nothing when there is none
/// left, and "%%" by "%". Every other "%" stays, and so does an argument as it is: neither can make
/// a formatter read or write anything.
std::string FillPlaceholders(std::string_view pattern, std::span<const std::string> arguments);

}  // namespace zoerrlog::jni

#endif
