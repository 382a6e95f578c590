#ifndef ZOERRLOG_OUTPUT_ZOOUTPUTTYPES_H
#define ZOERRLOG_OUTPUT_ZOOUTPUTTYPES_H

namespace zoerrlog::output {

/// The type codes of the library's own outputs.
enum OutputType {
    kConsole = 0,
    kFile = 1,
    kSyncCallback = 2,
    kAsyncCallback = 3,
    kSyncParameterizedCallback = 4,
    kAsyncParameterizedCallback = 5
};

constexpr bool IsOwnType(int type) {
    return type >= kConsole && type <= kAsyncParameterizedCallback;
}

}  // namespace zoerrlog::output

#endif
