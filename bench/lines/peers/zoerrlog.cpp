#include <bench/lines/peers/zoerrlog.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <bench/paths/line_paths.h>
#include <zoerrlog/zoerrlog.h>
#include <zoxlate/zoxlate.h>

namespace bench {
namespace {

using SetUpChannel = std::function<bool(const std::string& path)>;

constexpr int kTraceHeading = 2;
constexpr int kXml = 3;

/// The bundles lie beside the program, as in an installed tree.
void UseBundles() {
    const auto program = std::filesystem::read_symlink("/proc/self/exe");
    const auto bundles = program.parent_path().parent_path() / "share/zoerrlog/resources";
    Require(CZoXlate::SetResourceDirectory(bundles.c_str()), "the directory " + bundles.string());
}

template <bool (*Walk)()>
class Zoerrlog : public Subject {
public:
    explicit Zoerrlog(SetUpChannel channel) : setUp(std::move(channel)) {}
    ~Zoerrlog() override { Zoerrlog::TearDown(); }

    void SetUp(const std::string& path) override {
        UseBundles();
        Require(setUp(path), "a channel of zoerrlog to " + path);
    }
    bool Log() override { return Walk(); }
    void TearDown() override {
        theLogger()->DisableLog();
        theLogger()->DisableTrace(false);
        theLogger()->DisableAuditLog();
    }

private:
    SetUpChannel setUp;
};

/// A question takes no longer than any call does: it is asked in place, of a logger in hand.
template <bool (*Ask)(), unsigned int kComponent, bool kExpected>
class ZoerrlogQuestion final : public Zoerrlog<Ask> {
public:
    using Zoerrlog<Ask>::Zoerrlog;

    std::uint64_t LogMany(std::uint64_t calls) override {
        CZoLogger& logger = *theLogger();
        std::uint64_t refused = 0;
        for (; calls > 0; --calls) {
            refused += logger.TraceEnabled(kComponent) == kExpected ? 0 : 1;
        }
        return refused;
    }
};

SetUpChannel ErrorLog(int mode, int maxSizeMB, int maxBackups) {
    return
        [=](const std::string& path) { return SetUpErrorLog(path, mode, maxSizeMB, maxBackups); };
}

SetUpChannel TraceLog(int format) {
    return [format](const std::string& path) { return SetUpTrace(path, format); };
}

template <bool (*Walk)()>
void Add(Contenders& contenders, const std::string& workload, const SetUpChannel& setUp,
         int headings = 0) {
    Add<Zoerrlog<Walk>>(contenders, workload, "zoerrlog", setUp).headings = headings;
}

void AddErrorLines(Contenders& contenders) {
    const SetUpChannel append = ErrorLog(CZoFileOutput::Append, 0, 0);
    Add<ErrorLine>(contenders, "error_line", append);
    Add<ErrorLine>(contenders, "error_line_buffered", append);  // there is nothing to switch on
    Add<ErrorLine>(contenders, "error_line_limited",
                   ErrorLog(CZoFileOutput::RolloverBySize, kLargeLimitMB, 0));
    for (const int backups : {kFewBackups, kManyBackups}) {
        Add<ErrorLine>(contenders, RolloverWorkload(backups),
                       ErrorLog(CZoFileOutput::RolloverBySize, kRolloverLimitMB, backups));
    }
}

}  // namespace

void AddZoerrlog(Contenders& contenders) {
    AddErrorLines(contenders);
    constexpr const char* kLayouts[] = {"bracketed", "columns", "delimited", "xml"};
    for (int format = 0; format <= kXml; ++format) {
        Add<TraceLine>(contenders, std::string("trace_line_") + kLayouts[format], TraceLog(format),
                       format == kXml ? 0 : kTraceHeading);
    }
    Add<AuditLine>(contenders, "audit_line", SetUpAudit);
    using Unselected = ZoerrlogQuestion<AskUnselected, kLegacy, false>;
    using Selected = ZoerrlogQuestion<AskSelected, kAuthentication, true>;
    const SetUpChannel nothing = [](const std::string&) { return true; };
    const SetUpChannel trace = TraceLog(0);
    bench::Add<Unselected>(contenders, "question_off", "zoerrlog", nothing);
    bench::Add<Unselected>(contenders, "question_not_selected", "zoerrlog", trace).headings =
        kTraceHeading;
    bench::Add<Selected>(contenders, "question_selected", "zoerrlog", trace).headings =
        kTraceHeading;
    Add<GetRecord>(contenders, "record_of_a_thread", trace, kTraceHeading);
}

SampleLine SampleLines(const std::string& workload) {
    Contenders own;
    AddZoerrlog(own);
    const auto found = std::find_if(own.begin(), own.end(), [&](const Contender& contender) {
        return contender.workload == workload;
    });
    return [contender = *found](const std::string& path) {
        const auto subject = contender.make();
        subject->SetUp(path);
        Require(subject->Log(), "a line of " + contender.workload);
        subject->TearDown();
        std::string heading;
        std::ifstream file(path, std::ios::binary);
        for (int i = 0; i < contender.headings; ++i) {
            std::getline(file, heading);
        }
        std::string line(std::istreambuf_iterator<char>(file), {});
        std::filesystem::remove(path);
        return line;
    };
}

}  // namespace bench
