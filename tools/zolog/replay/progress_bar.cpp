#include <zolog/replay/progress_bar.h>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <iostream>
#include <mutex>
#include <string>
#include <utility>

namespace zolog {

namespace {

constexpr std::uint64_t kWidth = 40;
constexpr std::chrono::milliseconds kInterval{100};
// Back to the first column, then erase to the end of the line.
constexpr char kErase[] = "\r\x1b[K";

}  // namespace

ProgressBar::ProgressBar(std::uint64_t total, std::function<std::uint64_t()> done)
    : m_total(total),
      m_done(std::move(done)),
      m_thread([this](std::stop_token stop) { Show(std::move(stop)); }) {
}

void ProgressBar::Show(std::stop_token stop) const {
    std::mutex mutex;
    std::condition_variable_any stopped;
    std::unique_lock<std::mutex> lock(mutex);
    while (!stopped.wait_for(lock, stop, kInterval, [&stop] { return stop.stop_requested(); })) {
        Draw();
    }
    std::cerr << kErase << std::flush;
}

void ProgressBar::Draw() const {
    const std::uint64_t done = std::min(m_done(), m_total);
    const double share =
        m_total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(m_total);
    const auto filled = static_cast<std::size_t>(share * static_cast<double>(kWidth));
    std::string bar(kWidth, '.');
    bar.replace(0, filled, filled, '#');
    std::cerr << kErase << '[' << bar << "] " << static_cast<int>(share * 100) << "% " << done
              << " of " << m_total << " lines" << std::flush;
}

}  // namespace zolog
