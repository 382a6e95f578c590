#ifndef ZOERRLOG_BENCH_LINES_RUN_H
#define ZOERRLOG_BENCH_LINES_RUN_H

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

#include <bench/lines/line_check.h>
#include <bench/lines/subject.h>

namespace bench {

/// The directory that all files of a program go into: the given one, or a new one under the
/// current directory. It goes away with this object if this object made it.
class WorkDirectory {
public:
    explicit WorkDirectory(std::string given);
    ~WorkDirectory();
    WorkDirectory(const WorkDirectory&) = delete;
    WorkDirectory& operator=(const WorkDirectory&) = delete;

    const std::string& Path() const { return path; }

private:
    std::string path;
    bool made;
};

/// A contender set up in a directory of its own, which is removed with everything in it, so that
/// the page cache does not fill with old logs.
class Run {
public:
    Run(const Contender& chosen, const WorkDirectory& work);
    ~Run();
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    /// What the call costs beside the library's own cost is the same for every subject.
    void Log() {
        if (!subject->Log()) {
            refused.fetch_add(1, std::memory_order_relaxed);
        }
    }
    void LogMany(std::uint64_t calls) {
        refused.fetch_add(subject->LogMany(calls), std::memory_order_relaxed);
    }
    const std::string& File() const { return file; }
    /// Tears the subject down, reads its file and enters in the ledger what became of `calls`.
    void Finish(std::uint64_t calls, Ledger& ledger);

private:
    const Contender& contender;
    std::filesystem::path directory;
    std::string file;
    std::unique_ptr<Subject> subject;
    std::atomic<std::uint64_t> refused;
    bool finished;
};

/// Stores the rest of an argument "--name=value" and returns true if `argument` is that one.
bool TakeOption(const std::string& argument, const std::string& name, std::string& value);

}  // namespace bench

#endif
