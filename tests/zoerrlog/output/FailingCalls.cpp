#include "FailingCalls.h"

#include <dlfcn.h>

#include <algorithm>
#include <atomic>
#include <cerrno>

#include <zoi18n/zoi18n.h>

namespace {

using zotest::Call;

// Without a lock, which a child could find held that was forked during a call.
struct Chosen {
    std::vector<int> errors;
    std::atomic<std::size_t> next{0};
} g_chosen[4];

bool Fails(Call call) {
    Chosen& chosen = g_chosen[static_cast<int>(call)];
    const std::size_t i = chosen.next++;
    if (i >= chosen.errors.size() || chosen.errors[i] == 0) {
        return false;
    }
    errno = chosen.errors[i];
    return true;
}

template <typename Function>
Function* Next(Function* ours) {
    Dl_info info = {};
    ::dladdr(reinterpret_cast<void*>(ours), &info);
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, info.dli_sname));
}
const auto g_access = Next(ZoAccess);
const auto g_open = Next(ZoOpen);
const auto g_rename = Next(ZoRename);
const auto g_unlink = Next(ZoUnlink);

}  // namespace

void zotest::FailCalls(Call call, const std::vector<int>& errors) {
    g_chosen[static_cast<int>(call)].errors = errors;
    g_chosen[static_cast<int>(call)].next = 0;
}

bool zotest::FailuresArePending() {
    return std::any_of(std::begin(g_chosen), std::end(g_chosen),
                       [](const Chosen& chosen) { return chosen.next < chosen.errors.size(); });
}

int ZoAccess(const char* name, int mode) {
    return Fails(Call::Access) ? -1 : g_access(name, mode);
}

int ZoOpen(const char* name, int flags, int permission) {
    return Fails(Call::Open) ? -1 : g_open(name, flags, permission);
}

int ZoRename(const char* from, const char* to) {
    return Fails(Call::Rename) ? -1 : g_rename(from, to);
}

int ZoUnlink(const char* name) {
    return Fails(Call::Unlink) ? -1 : g_unlink(name);
}
