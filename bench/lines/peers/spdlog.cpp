#include <cstring>

#include <bench/lines/subject.h>
#include <bench/paths/line_texts.h>
#include <spdlog/async_logger.h>
#include <spdlog/details/thread_pool.h>
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <spdlog/spdlog.h>

namespace bench {
namespace {

constexpr const char* kErrorPattern = "[%P/%t][%a %b %d %Y %H:%M:%S][%s:%#][%l]%v";
constexpr const char* kTracePattern = "[%m/%d/%Y][%H:%M:%S.%e][%t]%v";
constexpr std::size_t kQueueLength = 8192;  // what spdlog::init_thread_pool is shown with
constexpr std::size_t kQueueThreads = 1;

using MakeSink = std::function<spdlog::sink_ptr(const std::string& path)>;

struct Settings {
    MakeSink makeSink;
    const char* pattern = kErrorPattern;
    bool flushEach = true;
    bool inQueue = false;
};

class Spdlog : public Subject {
public:
    explicit Spdlog(Settings chosen) : settings(std::move(chosen)) {}

    void SetUp(const std::string& path) override {
        const spdlog::sink_ptr sink = settings.makeSink(path);
        if (settings.inQueue) {
            queue = std::make_shared<spdlog::details::thread_pool>(kQueueLength, kQueueThreads);
            logger = std::make_shared<spdlog::async_logger>("lines", sink, queue);
        } else {
            logger = std::make_shared<spdlog::logger>("lines", sink);
        }
        logger->set_pattern(settings.pattern, spdlog::pattern_time_type::utc);
        logger->flush_on(settings.flushEach ? spdlog::level::trace : spdlog::level::off);
    }
    void TearDown() override {
        queue.reset();  // writes what is queued, then ends its thread
        logger.reset();
    }

protected:
    static spdlog::source_loc Here() { return {kSourceFile, kSourceLine, kFunction}; }

    std::shared_ptr<spdlog::logger> logger;

private:
    Settings settings;
    std::shared_ptr<spdlog::details::thread_pool> queue;
};

class ErrorLine final : public Spdlog {
public:
    using Spdlog::Spdlog;
    bool Log() override {
        logger->log(Here(), spdlog::level::err, "[{}] Failed password for {} from {} port {}",
                    kMessageKey, kUser, kAddress, kPort);
        return true;
    }
};

class TraceLine final : public Spdlog {
public:
    using Spdlog::Spdlog;
    bool Log() override {
        if (std::strcmp(kUser, kUnwantedUser) != 0) {
            logger->log(Here(), spdlog::level::info, "[{}][{}][{}][{}][attempt {} on port {}]",
                        kFunction, kUser, kAddress, kStatus, kAttempt, kAttemptPort);
        }
        return true;
    }
};

spdlog::sink_ptr PlainFile(const std::string& path) {
    return std::make_shared<spdlog::sinks::basic_file_sink_mt>(path);
}

MakeSink RotatingFile(int maxSizeMB, int backups) {
    return [=](const std::string& path) {
        return std::make_shared<spdlog::sinks::rotating_file_sink_mt>(
            path, static_cast<std::size_t>(maxSizeMB * kBytesPerMB),
            static_cast<std::size_t>(backups));
    };
}

}  // namespace

void AddSpdlog(Contenders& contenders) {
    const auto add = [&](const std::string& workload, const Settings& settings) {
        Add<ErrorLine>(contenders, workload, settings.inQueue ? "spdlog_async" : "spdlog",
                       settings);
    };
    add("error_line", {PlainFile});
    add("error_line_buffered", {PlainFile, kErrorPattern, false});
    add("error_line_buffered", {PlainFile, kErrorPattern, false, true});
    add("error_line_limited", {RotatingFile(kLargeLimitMB, kFewBackups)});
    for (const int backups : {kFewBackups, kManyBackups}) {
        add(RolloverWorkload(backups), {RotatingFile(kRolloverLimitMB, backups)});
    }
    Add<TraceLine>(contenders, "trace_line_bracketed", "spdlog",
                   Settings{PlainFile, kTracePattern});
}

}  // namespace bench
