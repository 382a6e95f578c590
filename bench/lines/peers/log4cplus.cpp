#include <cstring>
#include <ios>

#include <bench/lines/subject.h>
#include <bench/paths/line_texts.h>
#include <log4cplus/fileappender.h>
#include <log4cplus/initializer.h>
#include <log4cplus/layout.h>
#include <log4cplus/logger.h>
#include <log4cplus/loggingmacros.h>

namespace bench {
namespace {

using log4cplus::SharedAppenderPtr;
using MakeAppender = std::function<SharedAppenderPtr(const std::string& path)>;

constexpr const char* kName = "log4cplus";
constexpr const char* kErrorPattern = "[%i/%t][%d{%a %b %d %Y %H:%M:%S}][%F:%L][%p]%m%n";
constexpr const char* kTracePattern = "[%d{%m/%d/%Y][%H:%M:%S.%q}][%t]%m%n";

class Log4cplus : public Subject {
public:
    Log4cplus(MakeAppender appender, const char* layout)
        : makeAppender(std::move(appender)), pattern(layout) {}

    void SetUp(const std::string& path) override {
        static const log4cplus::Initializer initializer;
        const SharedAppenderPtr appender = makeAppender(path);
        appender->setLayout(std::make_unique<log4cplus::PatternLayout>(pattern));
        logger = log4cplus::Logger::getInstance("lines");
        logger.setAdditivity(false);
        logger.setLogLevel(log4cplus::INFO_LOG_LEVEL);
        logger.addAppender(appender);
    }
    void TearDown() override { logger.removeAllAppenders(); }

protected:
    /// What the macros of the library do, with our own source position.
    template <typename Stream>
    void Write(log4cplus::LogLevel level, const Stream& stream) {
        if (logger.isEnabledFor(level)) {
            log4cplus::tostringstream& text = log4cplus::detail::get_macro_body_oss();
            stream(text);
            log4cplus::detail::macro_forced_log(logger, level, text.str(), kSourceFile, kSourceLine,
                                                kFunction);
        }
    }

private:
    MakeAppender makeAppender;
    const char* pattern;
    log4cplus::Logger logger;
};

class ErrorLine final : public Log4cplus {
public:
    using Log4cplus::Log4cplus;
    bool Log() override {
        Write(log4cplus::ERROR_LOG_LEVEL, [](std::ostream& text) {
            text << '[' << kMessageKey << "] Failed password for " << kUser << " from " << kAddress
                 << " port " << kPort;
        });
        return true;
    }
};

class TraceLine final : public Log4cplus {
public:
    using Log4cplus::Log4cplus;
    bool Log() override {
        if (std::strcmp(kUser, kUnwantedUser) != 0) {
            Write(log4cplus::INFO_LOG_LEVEL, [](std::ostream& text) {
                text << '[' << kFunction << "][" << kUser << "][" << kAddress << "][" << kStatus
                     << "][attempt " << kAttempt << " on port " << kAttemptPort << ']';
            });
        }
        return true;
    }
};

MakeAppender PlainFile(bool flushEach) {
    return [=](const std::string& path) {
        return SharedAppenderPtr(new log4cplus::FileAppender(path, std::ios_base::app, flushEach));
    };
}

MakeAppender RollingFile(int maxSizeMB, int backups) {
    return [=](const std::string& path) {
        return SharedAppenderPtr(
            new log4cplus::RollingFileAppender(path, maxSizeMB * kBytesPerMB, backups, true));
    };
}

}  // namespace

void AddLog4cplus(Contenders& contenders) {
    Add<ErrorLine>(contenders, "error_line", kName, PlainFile(true), kErrorPattern);
    Add<ErrorLine>(contenders, "error_line_buffered", kName, PlainFile(false), kErrorPattern);
    Add<ErrorLine>(contenders, "error_line_limited", kName, RollingFile(kLargeLimitMB, kFewBackups),
                   kErrorPattern);
    for (const int backups : {kFewBackups, kManyBackups}) {
        Add<ErrorLine>(contenders, RolloverWorkload(backups), kName,
                       RollingFile(kRolloverLimitMB, backups), kErrorPattern);
    }
    Add<TraceLine>(contenders, "trace_line_bracketed", kName, PlainFile(true), kTracePattern);
}

}  // namespace bench
