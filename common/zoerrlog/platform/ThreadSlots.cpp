#include <zoerrlog/platform/ThreadSlots.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

#include <zoerrlog/platform/BlockList.h>
#include <zoerrlog/platform/CriticalSection.h>
#include <zoerrlog/platform/KeepErrno.h>
#include <zoerrlog/platform/Lifetime.h>

namespace zoerrlog::platform {
namespace {

// A slot's handle: its position in the table below, and a serial number that tells it from all
// others that had the same position.
constexpr unsigned kSerialShift = 32;
constexpr std::size_t kTableGrowth = 64;

std::uint32_t PositionOf(ThreadSlot slot) {
    return static_cast<std::uint32_t>(slot);
}

std::uint32_t SerialOf(ThreadSlot slot) {
    return static_cast<std::uint32_t>(slot >> kSerialShift);
}

ThreadSlot MakeSlot(std::uint32_t position, std::uint32_t serial) {
    return ThreadSlot{serial} << kSerialShift | position;
}

/// Which slots exist: the serial numbers by position, 0 where there is none.
class SlotTable {
public:
    ThreadSlot Allocate() {
        const CriticalSectionHold hold(m_lock);
        const std::uint32_t serial = ++m_lastSerial;
        std::uint32_t position = 0;
        Serial* entry = m_serials.FindIf([&position](const Serial& used) {
            return used.load(std::memory_order_relaxed) == 0 || (++position, false);
        });
        if (entry == nullptr) {
            entry = &m_serials.Grow();
        }
        entry->store(serial, std::memory_order_relaxed);
        return MakeSlot(position, serial);
    }

    void Free(std::uint32_t serial) noexcept {
        const CriticalSectionHold hold(m_lock);
        m_serials.ForEach([serial](Serial& used) {
            if (used.load(std::memory_order_relaxed) == serial) {
                used.store(0, std::memory_order_relaxed);
            }
        });
    }

    /// Calls `action` with the position and the serial number of every slot, with the lock held.
    template <typename Action>
    void ForEach(Action action) noexcept {
        const CriticalSectionHold hold(m_lock);
        std::uint32_t position = 0;
        m_serials.ForEach([&](const Serial& used) {
            if (const std::uint32_t serial = used.load(std::memory_order_relaxed); serial != 0) {
                action(position, serial);
            }
            ++position;
        });
    }

private:
    using Serial = std::atomic<std::uint32_t>;

    CriticalSection m_lock;
    BlockList<Serial, kTableGrowth> m_serials;
    std::uint32_t m_lastSerial = 0;
};

SlotTable& Table() {
    static ProcessLasting<SlotTable> table;
    return table.Get();
}

std::atomic<ThreadEndHandler> g_handler{nullptr};

struct Value {
    std::uint32_t serial;
    void* value;
};

// The calling thread's values by position. Without a destructor, so that a look at them costs
// nothing and is possible at any time; ThreadValues owns the memory.
struct View {
    Value* values;
    std::size_t size;
    bool ended;
};
constinit thread_local View t_view = {nullptr, 0, false};

class ThreadValues {
public:
    ThreadValues() = default;
    ~ThreadValues() {
        const View view = t_view;
        t_view = {nullptr, 0, true};
        const ThreadEndHandler handler = g_handler.load();
        Table().ForEach([&](std::uint32_t position, std::uint32_t serial) {
            if (position >= view.size || handler == nullptr) {
                return;
            }
            const Value& own = view.values[position];
            if (own.serial == serial && own.value != nullptr) {
                handler(MakeSlot(position, serial), own.value);
            }
        });
    }
    ThreadValues(const ThreadValues&) = delete;
    ThreadValues& operator=(const ThreadValues&) = delete;

    void Grow(std::size_t size) {
        auto larger = std::make_unique<Value[]>(size);
        std::copy_n(m_values.get(), t_view.size, larger.get());
        m_values = std::move(larger);
        t_view.values = m_values.get();
        t_view.size = size;
    }

private:
    std::unique_ptr<Value[]> m_values;
};

// Comes into being, and with it the work at the thread's end, with the thread's first value.
thread_local ThreadValues t_values;

}  // namespace

ThreadSlot AllocateThreadSlot() {
    return Table().Allocate();
}

void FreeThreadSlot(ThreadSlot slot) noexcept {
    Table().Free(SerialOf(slot));
}

void* ThreadSlotValue(ThreadSlot slot) noexcept {
    const View& view = t_view;
    const std::uint32_t position = PositionOf(slot);
    if (position >= view.size || view.values[position].serial != SerialOf(slot)) {
        return nullptr;
    }
    return view.values[position].value;
}

bool SetThreadSlotValue(ThreadSlot slot, void* value) {
    constexpr std::size_t kGrowth = 16;
    const KeepErrno keep;
    if (t_view.ended) {
        return false;
    }
    const std::uint32_t position = PositionOf(slot);
    if (position >= t_view.size) {
        t_values.Grow((position / kGrowth + 1) * kGrowth);
    }
    t_view.values[position] = {SerialOf(slot), value};
    return true;
}

void SetThreadEndHandler(ThreadEndHandler handler) noexcept {
    g_handler.store(handler);
}

}  // namespace zoerrlog::platform
