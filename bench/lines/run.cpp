#include <bench/lines/run.h>

#include <stdlib.h>

#include <algorithm>
#include <utility>

namespace bench {

WorkDirectory::WorkDirectory(std::string given) : path(std::move(given)), made(path.empty()) {
    if (made) {
        path = "bench-lines-XXXXXX";
        Require(mkdtemp(path.data()) != nullptr, "making a directory here");
    }
    path = std::filesystem::absolute(path).string();
    std::filesystem::create_directories(path);
}

WorkDirectory::~WorkDirectory() {
    std::error_code ignored;
    if (made) {
        std::filesystem::remove_all(path, ignored);
    }
}

Run::Run(const Contender& chosen, const WorkDirectory& work)
    : contender(chosen),
      directory(std::filesystem::path(work.Path()) / (chosen.workload + '-' + chosen.name)),
      file((directory / "run.log").string()),
      subject(chosen.make()),
      refused(0),
      finished(false) {
    std::filesystem::remove_all(directory);
    std::filesystem::create_directories(directory);
    subject->SetUp(file);
}

Run::~Run() {
    if (!finished) {
        subject->TearDown();
    }
    std::error_code ignored;
    std::filesystem::remove_all(directory, ignored);
}

void Run::Finish(std::uint64_t calls, Ledger& ledger) {
    subject->TearDown();
    finished = true;
    Tally tally = CheckFile(file, contender, calls);
    tally.lost = std::max(tally.lost, refused.load());
    ledger.Add(contender, tally);
}

bool TakeOption(const std::string& argument, const std::string& name, std::string& value) {
    const std::string prefix = "--" + name + '=';
    const bool taken = argument.compare(0, prefix.size(), prefix) == 0;
    if (taken) {
        value = argument.substr(prefix.size());
    }
    return taken;
}

}  // namespace bench
