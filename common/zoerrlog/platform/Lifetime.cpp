#include <zoerrlog/platform/Lifetime.h>

#include <atomic>

namespace zoerrlog::platform {
namespace {

std::atomic<bool> g_finalizersRun{false};

// Unloading a library runs its finalizers first and the destructors of its static objects last,
// from the start-up code's own finalizer; exit runs the destructors first, as exit handlers, and
// the finalizers of the libraries afterwards. So a destructor tells the two apart by this mark.
__attribute__((destructor)) void MarkFinalizersRun() {
    g_finalizersRun.store(true);
}

}  // namespace

bool IsBeingUnloaded() noexcept {
    return g_finalizersRun.load();
}

}  // namespace zoerrlog::platform
