#include <zoerrlog/platform/Module.h>

#include <dlfcn.h>
#include <link.h>

namespace zoerrlog::platform {

void* FindSymbol(void* module, const char* name) noexcept {
    void* const symbol = dlsym(module, name);
    if (symbol == nullptr) {
        return nullptr;
    }
    // dlsym looks through the library's dependencies too.
    Dl_info found = {};
    link_map* own = nullptr;
    link_map* foundIn = nullptr;
    if (dlinfo(module, RTLD_DI_LINKMAP, &own) != 0 ||
        dladdr1(symbol, &found, reinterpret_cast<void**>(&foundIn), RTLD_DL_LINKMAP) == 0) {
        return nullptr;
    }
    return own == foundIn ? symbol : nullptr;
}

void FreeModule(void* module) noexcept {
    if (module != nullptr) {
        dlclose(module);
    }
}

}  // namespace zoerrlog::platform
