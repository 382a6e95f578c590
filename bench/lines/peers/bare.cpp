// The floor: a line that is there already is handed to the kernel, and nothing else.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <bench/lines/peers/zoerrlog.h>

namespace bench {
namespace {

constexpr mode_t kOwnerReadWrite = 0600;

class Bare : public Subject {
public:
    explicit Bare(const std::string& workload) : line(SampleLines(workload)) {}
    ~Bare() override { Bare::TearDown(); }

    void SetUp(const std::string& path) override {
        text = line(path);
        descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, kOwnerReadWrite);
        Require(descriptor >= 0, "opening " + path);
    }
    void TearDown() override {
        if (descriptor >= 0) {
            close(descriptor);
            descriptor = -1;
        }
    }

protected:
    bool Write() const {
        return write(descriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    }

    int descriptor = -1;

private:
    SampleLine line;
    std::string text;
};

struct NoQuestion {
    static bool Ask(int /*descriptor*/) { return true; }
};
struct BySeeking {
    static bool Ask(int descriptor) { return lseek(descriptor, 0, SEEK_END) >= 0; }
};
struct BySizeAlone {
    static bool Ask(int descriptor) {
        struct statx status = {};
        return statx(descriptor, "", AT_EMPTY_PATH, STATX_SIZE, &status) == 0;
    }
};
struct ByStatus {
    static bool Ask(int descriptor) {
        struct stat status = {};
        return fstat(descriptor, &status) == 0;
    }
};

/// Asks for the size first, as a library that watches a limit must, unless the answer is its own.
template <typename Question>
class BareLine final : public Bare {
public:
    using Bare::Bare;
    bool Log() override { return Question::Ask(descriptor) && Write(); }
};

}  // namespace

void AddBare(Contenders& contenders) {
    for (const char* workload : {"error_line", "trace_line_bracketed", "trace_line_columns",
                                 "trace_line_delimited", "trace_line_xml", "audit_line"}) {
        Add<BareLine<NoQuestion>>(contenders, workload, "bare_write", std::string(workload));
    }
    const std::string limited = "error_line_limited";
    Add<BareLine<BySeeking>>(contenders, limited, "lseek_write", limited);
    Add<BareLine<BySizeAlone>>(contenders, limited, "statx_write", limited);
    Add<BareLine<ByStatus>>(contenders, limited, "fstat_write", limited);
}

}  // namespace bench
