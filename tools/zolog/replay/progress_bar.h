#ifndef ZOLOG_REPLAY_PROGRESS_BAR_H
#define ZOLOG_REPLAY_PROGRESS_BAR_H

#include <cstdint>
#include <functional>
#include <thread>

namespace zolog {

/// Shows on standard error how far a run has come, from its construction to its destruction, by a
/// thread of its own that asks now and then. The bar is gone afterwards.
class ProgressBar {
public:
    /// `done` gives the lines handled so far; it is called on the bar's thread.
    ProgressBar(std::uint64_t total, std::function<std::uint64_t()> done);

private:
    void Show(std::stop_token stop) const;
    void Draw() const;

    std::uint64_t m_total;
    std::function<std::uint64_t()> m_done;
    // Last: it ends, and is joined, before what it reads is gone.
    std::jthread m_thread;
};

}  // namespace zolog

#endif
