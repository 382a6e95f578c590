#include <zoerrlog/base/ZoExport.h>

// A library like any other, not made for the logger.
extern "C" ZOERRLOG_EXPORT int ZoTestNothing() {
    return 0;
}
