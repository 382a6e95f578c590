#include <zolog/replay/replay_run.h>

#include <algorithm>
#include <atomic>
#include <iostream>
#include <optional>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include <login_logout/LoginLogoutMessages.h>
#include <zoerrlog/zoerrlog.h>

#include <zolog/platform/terminal.h>
#include <zolog/replay/input_reader.h>
#include <zolog/replay/progress_bar.h>
#include <zolog/replay/replay_options.h>
#include <zolog/replay/sshd_line_parser.h>
#include <zolog/replay/trace_line.h>

namespace zolog {

namespace {

constexpr unsigned int kSeverityShift = 14;

// Deals out the lines, repeated as often as asked, to the threads. Blocks are large enough that
// the shared counter costs a thread next to nothing, and small enough that all end together.
class LineDealer {
public:
    static constexpr std::uint64_t kBlockLines = 64;

    explicit LineDealer(std::uint64_t total) : m_total(total) {}

    struct Block {
        std::uint64_t begin;
        std::uint64_t end;
    };
    std::optional<Block> Next() {
        const std::uint64_t begin = m_next.fetch_add(kBlockLines, std::memory_order_relaxed);
        if (begin >= m_total) {
            return std::nullopt;
        }
        return Block{begin, std::min(begin + kBlockLines, m_total)};
    }
    std::uint64_t Dealt() const { return m_next.load(std::memory_order_relaxed); }
    std::uint64_t Total() const { return m_total; }

private:
    const std::uint64_t m_total;
    std::atomic<std::uint64_t> m_next{0};
};

struct MessageKind {
    Severity severity;
    unsigned int number;
};

MessageKind KindOf(SshdEventKind kind) {
    switch (kind) {
        case SshdEventKind::kFailedPassword:
            return {kError, login_logout::kFailedPassword};
        case SshdEventKind::kAcceptedPassword:
            return {kInformation, login_logout::kAcceptedPassword};
        case SshdEventKind::kBreakInAttempt:
            break;
    }
    return {kWarning, login_logout::kNameDoesNotMapBack};
}

bool WriteMessage(const InputLine& line, const SshdEvent& event, const MessageKind& kind) {
    CZoErrLogMessage record;
    record.FormatLogProlog(line.fileName, line.number, 0);
    record.GetArgList() << event.name << event.address << event.port;
    record.FormatMessageA(login_logout::kComponentId | kind.severity << kSeverityShift |
                          kind.number);
    return theLogger()->LogErrMsg(record);
}

void ReportLine(const InputLine& line, Tally& tally) {
    const std::optional<SshdEvent> event = ParseSshdLine(line.text);
    if (!event) {
        return;
    }
    const MessageKind kind = KindOf(event->kind);
    ++tally.messages[kind.severity];
    ++(WriteMessage(line, *event, kind) ? tally.accepted : tally.refused);
}

void OfferLine(const InputLine& line, Tally& tally) {
    ++tally.offered;
    switch (TraceLine(line)) {
        case TraceOutcome::kFilteredOut:
            ++tally.filteredOut;
            break;
        case TraceOutcome::kTraced:
            ++tally.traced;
            break;
        case TraceOutcome::kRefused:
            ++tally.refused;
            break;
    }
}

void AuditLine(const InputLine& line, Tally& tally) {
    CZoErrLogMessage record;
    record.SetFormattedMessage(std::string(line.text).append(1, '\n').c_str());
    ++(theLogger()->LogAuditMsg(record) ? tally.audited : tally.refused);
}

void ReplayLine(const InputLine& line, Tally& tally) {
    ++tally.linesRead;
    ReportLine(line, tally);
    OfferLine(line, tally);
    AuditLine(line, tally);
}

// Counts into a tally of its own stack, so that no two threads write to the same cache line.
Tally Work(const std::vector<InputLine>& lines, LineDealer& dealer) {
    Tally tally;
    while (const std::optional<LineDealer::Block> block = dealer.Next()) {
        for (std::uint64_t index = block->begin; index < block->end; ++index) {
            ReplayLine(lines[index % lines.size()], tally);
        }
    }
    return tally;
}

Tally RunThreads(const std::vector<InputLine>& lines, LineDealer& dealer, int threads) {
    std::vector<Tally> tallies(static_cast<std::size_t>(threads));
    {
        std::vector<std::jthread> helpers;
        helpers.reserve(tallies.size());
        try {
            for (std::size_t i = 1; i < tallies.size(); ++i) {
                helpers.emplace_back(
                    [&lines, &dealer, &tally = tallies[i]] { tally = Work(lines, dealer); });
            }
        } catch (const std::system_error& error) {
            std::cerr << "zolog: only " << helpers.size() + 1 << " of " << threads
                      << " threads could be started: " << error.code().message() << '\n';
        }
        tallies.front() = Work(lines, dealer);
    }
    Tally sum;
    for (const Tally& tally : tallies) {
        sum += tally;
    }
    return sum;
}

}  // namespace

Tally& Tally::operator+=(const Tally& other) {
    linesRead += other.linesRead;
    for (std::size_t i = 0; i < messages.size(); ++i) {
        messages[i] += other.messages[i];
    }
    accepted += other.accepted;
    offered += other.offered;
    filteredOut += other.filteredOut;
    traced += other.traced;
    audited += other.audited;
    refused += other.refused;
    return *this;
}

ReplayResult Replay(const Input& input, const ReplayOptions& options) {
    const std::vector<InputLine>& lines = input.Lines();
    LineDealer dealer(lines.size() * static_cast<std::uint64_t>(options.repeat));

    // Log lines on the same terminal would run through the bar.
    std::optional<ProgressBar> bar;
    if (!options.quiet && !options.console && StandardErrorIsTerminal()) {
        bar.emplace(dealer.Total(), [&dealer] { return dealer.Dealt(); });
    }
    const auto start = std::chrono::steady_clock::now();
    ReplayResult result;
    result.tally = RunThreads(lines, dealer, options.threads);
    result.seconds = std::chrono::steady_clock::now() - start;
    return result;
}

}  // namespace zolog
