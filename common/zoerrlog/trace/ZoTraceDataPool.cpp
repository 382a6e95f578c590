#include <zoerrlog/trace/ZoTraceDataPool.h>

#include <utility>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/platform/Process.h>
#include <zoerrlog/trace/ZoTraceData.h>

using namespace zoerrlog::platform;

ZoTraceDataPool& ZoTraceDataPool::Instance() {
    static ProcessLasting<ZoTraceDataPool> pool;
    return pool.Get();
}

ZoTraceDataPool::ZoTraceDataPool() {
    SetThreadEndHandler(&OnThreadEnd);
}

ZoTraceDataPool::~ZoTraceDataPool() {
    SetThreadEndHandler(nullptr);
}

ZoTraceDataPool::Entry::~Entry() {
    Replace(nullptr);
}

void ZoTraceDataPool::Entry::Replace(std::unique_ptr<CZoTraceData> successor) noexcept {
    if (torn) {
        // Not even safe to destroy.
        static_cast<void>(record.release());
        torn = false;
    }
    record = std::move(successor);
    m_pTraceData = record.get();
}

void ZoTraceDataPool::AddLogger() noexcept {
    const CriticalSectionHold hold(m_lock);
    ++m_loggers;
}

void ZoTraceDataPool::RemoveLogger(ThreadSlot slot) noexcept {
    const CriticalSectionHold hold(m_lock);
    if (--m_loggers == 0) {
        m_entries.Clear();
        return;
    }
    m_entries.ForEach([slot](Entry& entry) {
        if (entry.slot == slot) {
            entry.slot = kNoThreadSlot;
            entry.m_bFree = true;
        }
    });
}

ThreadTraceData& ZoTraceDataPool::Take(ThreadSlot slot) {
    // Records ask the default logger for its choices. Made here, it is not made under the lock.
    theLogger();
    const CriticalSectionHold hold(m_lock);
    Entry* entry = m_entries.FindIf([](const Entry& candidate) { return candidate.m_bFree; });
    if (entry == nullptr) {
        entry = &m_entries.Grow();
    }
    std::unique_ptr<CZoTraceData> fresh;
    if (entry->record == nullptr || entry->torn) {
        fresh = std::make_unique<CZoTraceData>();
    }
    // Held from here on: if another thread forks, the child knows that the record is half done.
    entry->slot = slot;
    entry->thread = ThreadIdentity();
    entry->m_bFree = false;
    if (fresh == nullptr) {
        entry->record->Recycle();
    } else {
        entry->Replace(std::move(fresh));
    }
    return *entry;
}

void ZoTraceDataPool::OnThreadEnd(ThreadSlot slot, void* value) noexcept {
    ZoTraceDataPool& pool = Instance();
    const CriticalSectionHold hold(pool.m_lock);
    Entry& entry = *static_cast<Entry*>(static_cast<ThreadTraceData*>(value));
    if (entry.slot == slot) {
        entry.slot = kNoThreadSlot;
        entry.m_bFree = true;
    }
}

void ZoTraceDataPool::AfterForkInChild() noexcept {
    // The other threads are not in the child; what they were doing to their records is half done.
    m_entries.ForEach([](Entry& entry) {
        if (!entry.m_bFree && entry.thread != ThreadIdentity()) {
            entry.torn = true;
            entry.slot = kNoThreadSlot;
            entry.m_bFree = true;
        }
    });
}

ThreadTraceData* GetThreadTraceData() {
    return &ZoTraceDataPool::Instance().Take(kNoThreadSlot);
}
