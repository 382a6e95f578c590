#ifndef ZOERRLOG_PLATFORM_MODULE_H
#define ZOERRLOG_PLATFORM_MODULE_H

namespace zoerrlog::platform {

/// The address of `name` in the loaded library `module`, or null. A symbol that the library
/// merely gets from one it is linked with does not count.
void* FindSymbol(void* module, const char* name) noexcept;

/// Gives back one load of the library.
void FreeModule(void* module) noexcept;

}  // namespace zoerrlog::platform

#endif
