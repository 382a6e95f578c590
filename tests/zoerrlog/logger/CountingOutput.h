#ifndef TESTS_ZOERRLOG_LOGGER_COUNTINGOUTPUT_H
#define TESTS_ZOERRLOG_LOGGER_COUNTINGOUTPUT_H

#include <atomic>

#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/output/ZoLogOutput.h>

namespace zotest {

struct OutputCounts {
    std::atomic<long> opened{0};
    std::atomic<long> taken{0};
    std::atomic<long> closed{0};
    std::atomic<long> destroyed{0};
    std::atomic<long> outOfOrder{0};
};

/// Is opened when all before it are destroyed, then takes lines, is closed and destroyed. Of a kind
/// that the library does not know; the plain member shows a race.
class CountingOutput final : public CZoLogOutput {
public:
    explicit CountingOutput(OutputCounts& counts) : m_counts(counts) { SetType(99); }
    ~CountingOutput() override {
        m_counts.outOfOrder += m_open;
        ++m_counts.destroyed;
    }
    bool Open() override {
        m_counts.outOfOrder += m_counts.opened++ != m_counts.destroyed;
        return m_open = true;
    }
    bool Log(CZoErrLogMessage& /*message*/) override {
        m_counts.outOfOrder += !m_open;
        ++m_counts.taken;
        return true;
    }
    bool Close() override {
        m_counts.outOfOrder += !m_open;
        ++m_counts.closed;
        return m_open = false;
    }

private:
    OutputCounts& m_counts;
    bool m_open = false;
};

}  // namespace zotest

#endif
