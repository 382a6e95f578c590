#include <zoerrlog/platform/Process.h>

#include <unistd.h>

#include <atomic>

#include <zoerrlog/platform/ForkAware.h>

namespace zoerrlog::platform {
namespace {

// Generation in the upper half, process id in the lower: both are read in one step.
std::atomic<std::uint64_t> g_process{0};

struct RememberedThread {
    std::uint32_t generation = 0;
    unsigned int id = 0;
};

thread_local RememberedThread t_thread;
thread_local char t_identity;

}  // namespace

int ProcessId() noexcept {
    const std::uint32_t generation = ForkGeneration();
    std::uint64_t process = g_process.load(std::memory_order_relaxed);
    if (process >> 32 != generation) {
        process = static_cast<std::uint64_t>(generation) << 32 | static_cast<unsigned>(getpid());
        g_process.store(process, std::memory_order_relaxed);
    }
    return static_cast<int>(process & 0xFFFFFFFF);
}

unsigned int ThreadId() noexcept {
    RememberedThread& thread = t_thread;
    const std::uint32_t generation = ForkGeneration();
    if (thread.generation != generation) {
        thread.id = static_cast<unsigned int>(gettid());
        thread.generation = generation;
    }
    return thread.id;
}

const void* ThreadIdentity() noexcept {
    return &t_identity;
}

}  // namespace zoerrlog::platform
