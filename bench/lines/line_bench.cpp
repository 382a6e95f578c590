// line_bench [--directory=DIR] [--check-file=FILE] [option of Google Benchmark...]
// Times each workload with each subject. With several threads, the real time of a line is that of
// the whole run divided by the lines of all threads. Every file is read afterwards: the exit status
// is 1 when a line was lost or torn.
#include <barrier>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <bench/lines/line_check.h>
#include <bench/lines/run.h>
#include <bench/lines/subject.h>
#include <benchmark/benchmark.h>

namespace {

/// One benchmark is run at a time: set up, checked and torn down by its first thread. Threads that
/// outnumber the processors start and end at different times, and the library would take the mean
/// of what each saw; so they all wait for each other within the time that is measured.
class Bench {
public:
    Bench(const bench::WorkDirectory& files, bench::Ledger& lines)
        : directory(files), ledger(lines) {}

    void Execute(benchmark::State& state, const bench::Contender& contender) {
        const bool first = state.thread_index() == 0;
        if (first) {
            run = std::make_unique<bench::Run>(contender, directory);
            together = std::make_unique<std::barrier<>>(state.threads());
        }
        // The first question whether to go on lets nobody pass before the first thread is here.
        while (state.KeepRunningBatch(state.max_iterations)) {
            together->arrive_and_wait();
            run->LogMany(state.max_iterations);
            together->arrive_and_wait();
        }
        // The last question likewise: nobody is in the loop any more.
        if (first) {
            run->Finish(static_cast<std::uint64_t>(state.iterations()) *
                            static_cast<std::uint64_t>(state.threads()),
                        ledger);
            run.reset();
        }
    }

private:
    const bench::WorkDirectory& directory;
    bench::Ledger& ledger;
    std::unique_ptr<bench::Run> run;
    std::unique_ptr<std::barrier<>> together;
};

}  // namespace

int main(int argc, char** argv) {
    std::string directoryName;
    std::string checkFile;
    std::vector<char*> arguments;
    for (int i = 0; i < argc; ++i) {
        if (!bench::TakeOption(argv[i], "directory", directoryName) &&
            !bench::TakeOption(argv[i], "check-file", checkFile)) {
            arguments.push_back(argv[i]);
        }
    }
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) {
        return EXIT_FAILURE;
    }

    const bench::WorkDirectory directory(directoryName);
    bench::Ledger ledger;
    Bench program(directory, ledger);
    const bench::Contenders contenders = bench::AllContenders();
    for (const bench::Contender& contender : contenders) {
        if (bench::IsRollover(contender)) {
            continue;
        }
        const std::string name = contender.workload + '/' + contender.name;
        benchmark::RegisterBenchmark(
            name.c_str(), [&](benchmark::State& state) { program.Execute(state, contender); })
            ->UseRealTime()
            ->Threads(1)
            ->Threads(2)
            ->Threads(4)
            ->Threads(8);
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    if (!checkFile.empty()) {
        ledger.Write(checkFile);
    }
    return ledger.Report() ? EXIT_SUCCESS : EXIT_FAILURE;
}
