#ifndef ZOERRLOG_TRACE_ZOTRACEDATAPOOL_H
#define ZOERRLOG_TRACE_ZOTRACEDATAPOOL_H

#include <memory>

#include <zoerrlog/platform/BlockList.h>
#include <zoerrlog/platform/CriticalSection.h>
#include <zoerrlog/platform/ForkAware.h>
#include <zoerrlog/platform/Lifetime.h>
#include <zoerrlog/platform/ThreadSlots.h>
#include <zoerrlog/trace/ZoThreadTraceData.h>

/// The trace records of the process: handed out to threads, taken back when a thread ends or a
/// logger goes, and gone with the last logger. Any thread may call any operation.
class ZoTraceDataPool final : private zoerrlog::platform::ForkAware {
public:
    static ZoTraceDataPool& Instance();

    /// Every logger is counted, from its initialisation to its release.
    void AddLogger() noexcept;
    /// Takes back what threads hold for the logger of `slot`. The slot must have been freed: no
    /// ending thread gives an entry of it back any more.
    void RemoveLogger(zoerrlog::platform::ThreadSlot slot) noexcept;

    /// A free entry with a record that is as new, for the calling thread and the logger of `slot`,
    /// or for no logger. May throw std::bad_alloc.
    ThreadTraceData& Take(zoerrlog::platform::ThreadSlot slot);

private:
    struct Entry : ThreadTraceData {
        Entry() : ThreadTraceData{nullptr, true} {}
        ~Entry();
        void Replace(std::unique_ptr<CZoTraceData> successor) noexcept;

        std::unique_ptr<CZoTraceData> record;  // made when the entry is first handed out
        zoerrlog::platform::ThreadSlot slot = zoerrlog::platform::kNoThreadSlot;
        const void* thread = nullptr;  // holds the entry unless it is free
        bool torn = false;             // a fork cut the thread off that was using the record
    };
    friend zoerrlog::platform::ProcessLasting<ZoTraceDataPool>;

    ZoTraceDataPool();
    ~ZoTraceDataPool();

    static void OnThreadEnd(zoerrlog::platform::ThreadSlot slot, void* value) noexcept;
    void AfterForkInChild() noexcept override;

    static constexpr std::size_t kGrowth = 30;

    zoerrlog::platform::CriticalSection m_lock;
    zoerrlog::platform::BlockList<Entry, kGrowth> m_entries;
    int m_loggers = 0;
};

#endif
