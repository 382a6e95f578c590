// single_calls [--directory=DIR] [--check-file=FILE] [--rounds=N] [--calls=N] [--rollovers=N]
// Times every single call, in rounds over all subjects, and the calls that roll a file over; prints
// the percentiles of all rounds as JSON. A time contains one reading of the clock. The exit status
// is 1 when a line was lost or torn.
#include <barrier>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

#include <bench/lines/line_check.h>
#include <bench/lines/rollover_calls.h>
#include <bench/lines/run.h>
#include <bench/lines/subject.h>

namespace {

using bench::Times;
using Clock = std::chrono::steady_clock;

constexpr int kThreadCounts[] = {1, 4};

struct Options {
    std::string directory;
    std::string checkFile;
    int rounds = 10;
    int calls = 20'000;  // of a subject in a round, all threads together
    int rollovers = 120;
};

bool IsTimed(const bench::Contender& contender) {
    return contender.workload == "error_line" || contender.workload == "error_line_limited" ||
           contender.workload == "trace_line_bracketed";
}

bool TakeNumber(const std::string& argument, const std::string& name, int& number) {
    std::string text;
    if (!bench::TakeOption(argument, name, text)) {
        return false;
    }
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    bench::Require(result.ec == std::errc() && *result.ptr == '\0' && number > 0,
                   "the argument " + argument);
    return true;
}

Options ReadOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        bench::Require(TakeNumber(argument, "rounds", options.rounds) ||
                           TakeNumber(argument, "calls", options.calls) ||
                           TakeNumber(argument, "rollovers", options.rollovers) ||
                           bench::TakeOption(argument, "directory", options.directory) ||
                           bench::TakeOption(argument, "check-file", options.checkFile),
                       "the argument " + argument);
    }
    return options;
}

/// `times` has the room already, so that no page of it is touched for the first time here.
void TimeCalls(bench::Run& run, Times& times) {
    auto begin = Clock::now();
    for (auto& time : times) {
        run.Log();
        const auto end = Clock::now();
        time = std::chrono::nanoseconds(end - begin).count();
        begin = end;
    }
}

void RunRound(const bench::Contender& contender, int threads, const Options& options,
              const bench::WorkDirectory& directory, bench::Ledger& ledger, Times& all) {
    const auto callsOfThread = static_cast<std::size_t>(options.calls / threads);
    std::vector<Times> times(static_cast<std::size_t>(threads), Times(callsOfThread));
    bench::Run run(contender, directory);
    std::barrier start(threads);
    {
        std::vector<std::jthread> writers;
        writers.reserve(times.size());
        for (Times& ofThread : times) {
            writers.emplace_back([&] {
                start.arrive_and_wait();
                TimeCalls(run, ofThread);
            });
        }
    }
    run.Finish(callsOfThread * times.size(), ledger);
    for (const Times& ofThread : times) {
        all.insert(all.end(), ofThread.begin(), ofThread.end());
    }
}

void PrintCalls(const bench::Contender& contender, int threads, Times& times) {
    std::cout << R"({"workload":")" << contender.workload << R"(","subject":")" << contender.name
              << R"(","threads":)" << threads << R"(,"calls":)" << times.size() << R"(,"p50_ns":)"
              << bench::Percentile(times, 0.5) << R"(,"p99_ns":)" << bench::Percentile(times, 0.99)
              << R"(,"p999_ns":)" << bench::Percentile(times, 0.999) << R"(,"worst_ns":)"
              << bench::Percentile(times, 1) << '}';
}

void TimeAllCalls(const bench::Contenders& contenders, const Options& options,
                  const bench::WorkDirectory& directory, bench::Ledger& ledger) {
    const char* separator = "\n";
    for (const int threads : kThreadCounts) {
        std::vector<Times> times(contenders.size());
        for (int round = 0; round < options.rounds; ++round) {
            for (std::size_t i = 0; i < contenders.size(); ++i) {
                // Every other round backwards: nobody always follows the same subject.
                const std::size_t chosen = round % 2 == 0 ? i : contenders.size() - 1 - i;
                if (IsTimed(contenders[chosen])) {
                    RunRound(contenders[chosen], threads, options, directory, ledger,
                             times[chosen]);
                }
            }
        }
        for (std::size_t i = 0; i < contenders.size(); ++i) {
            if (IsTimed(contenders[i])) {
                std::cout << separator;
                PrintCalls(contenders[i], threads, times[i]);
                separator = ",\n";
            }
        }
    }
}

void TimeAllRollovers(const bench::Contenders& contenders, const Options& options,
                      const bench::WorkDirectory& directory) {
    const char* separator = "\n";
    for (const int backups : {bench::kFewBackups, bench::kManyBackups}) {
        for (auto& result :
             bench::TimeRollovers(contenders, backups, options.rollovers, directory)) {
            std::cout << separator << R"({"subject":")" << result.subject << R"(","backups":)"
                      << backups << R"(,"rollovers":)" << result.times.size() << R"(,"median_ns":)"
                      << bench::Percentile(result.times, 0.5) << R"(,"worst_ns":)"
                      << bench::Percentile(result.times, 1) << '}';
            separator = ",\n";
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    const Options options = ReadOptions(argc, argv);
    const bench::WorkDirectory directory(options.directory);
    const bench::Contenders contenders = bench::AllContenders();
    bench::Ledger ledger;
    std::cout << R"({"calls":[)";
    TimeAllCalls(contenders, options, directory, ledger);
    std::cout << "],\n\"rollover\":[";
    TimeAllRollovers(contenders, options, directory);
    std::cout << "]}\n";
    if (!options.checkFile.empty()) {
        ledger.Write(options.checkFile);
    }
    return ledger.Report() ? EXIT_SUCCESS : EXIT_FAILURE;
}
