#ifndef ZOERRLOG_BENCH_LINES_SUBJECT_H
#define ZOERRLOG_BENCH_LINES_SUBJECT_H

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace bench {

/// What is measured: one library, set up in one way. Used by one run at a time.
class Subject {
public:
    Subject() = default;
    virtual ~Subject() = default;
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;

    /// Makes ready to write to `path`, which does not exist. Ends the program when it cannot.
    virtual void SetUp(const std::string& path) = 0;
    /// Writes one line, or asks one question; false when the library refused. Any thread.
    virtual bool Log() = 0;
    /// Calls Log `calls` times; the number of refusals.
    virtual std::uint64_t LogMany(std::uint64_t calls) {
        std::uint64_t refused = 0;
        for (; calls > 0; --calls) {
            refused += Log() ? 0 : 1;
        }
        return refused;
    }
    /// Everything that was logged is in the file afterwards, and the file is closed.
    virtual void TearDown() = 0;
};

/// A subject in a workload.
struct Contender {
    std::string workload;
    std::string name;
    std::function<std::unique_ptr<Subject>()> make;
    int headings = 0;        // lines at the start of its file that nobody logged
    std::string begin = {};  // of its lines, as in line_check.cpp; empty if they are like the rest
};

using Contenders = std::vector<Contender>;

/// Adds a subject that is made of copies of `settings`; what is its own alone is set afterwards.
template <typename Made, typename... Settings>
Contender& Add(Contenders& contenders, const std::string& workload, const std::string& name,
               const Settings&... settings) {
    return contenders.emplace_back(
        Contender{workload, name, [=] { return std::make_unique<Made>(settings...); }});
}

constexpr int kLargeLimitMB = 1000;  // no run gets there
constexpr int kRolloverLimitMB = 1;
constexpr int kFewBackups = 1;
constexpr int kManyBackups = 100;
constexpr long kBytesPerMB = 1L << 20;

/// The workload whose lines bring a file of kRolloverLimitMB to its limit.
std::string RolloverWorkload(int backups);
bool IsRollover(const Contender& contender);

/// Everything that was found when this was built, workload by workload, in a fixed order.
Contenders AllContenders();

/// Ends the program with a sentence when something that every result depends on does not work.
void Require(bool holds, const std::string& what);

// One a source of peers/.
void AddBare(Contenders& contenders);
void AddZoerrlog(Contenders& contenders);
void AddSpdlog(Contenders& contenders);
void AddGlog(Contenders& contenders);
void AddLog4cplus(Contenders& contenders);
void AddLog4cxx(Contenders& contenders);
void AddBoostLog(Contenders& contenders);

}  // namespace bench

#endif
