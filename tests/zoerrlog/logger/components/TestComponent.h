#ifndef TESTS_ZOERRLOG_LOGGER_COMPONENTS_TESTCOMPONENT_H
#define TESTS_ZOERRLOG_LOGGER_COMPONENTS_TESTCOMPONENT_H

#include <zoerrlog/logger/ZoErrLogComponent.h>

namespace zotest {

/// Of the set "mixed": one whose entry a test chooses, and one that has no bundle and no parts.
constexpr unsigned int kControlledComponent = 0x02000000;
constexpr unsigned int kPlainComponent = 0x03000000;
/// Its library has no entry point of its own; that of the next gives no component.
constexpr unsigned int kNoEntryPointComponent = 0x05000000;
constexpr unsigned int kNullEntryPointComponent = 0x07000000;
/// A component that no set has.
constexpr unsigned int kAbsentComponent = 0x1B000000;

}  // namespace zotest

extern "C" {
/// The text that the component gives for all its messages but number 0; not copied.
ZOERRLOG_EXPORT void SetControlledEntry(const char* entry);
}

#endif
