#include <unistd.h>

#include <cstring>

#include <bench/lines/subject.h>
#include <bench/paths/line_texts.h>
#include <log4cxx/fileappender.h>
#include <log4cxx/helpers/messagebuffer.h>
#include <log4cxx/logger.h>
#include <log4cxx/patternlayout.h>

namespace bench {
namespace {

constexpr const char* kName = "log4cxx";
constexpr const char* kTracePattern = "[%d{MM/dd/yyyy][HH:mm:ss.SSS}{GMT}][%t]%m%n";
constexpr int kBufferBytes = 8192;  // the default of the library's BufferSize

/// There is no conversion for the process id: it is part of the pattern.
std::string ErrorPattern() {
    return '[' + std::to_string(getpid()) +
           "/%t][%d{EEE MMM dd yyyy HH:mm:ss}{GMT}][%f:%L][%p]%m%n";
}

class Log4cxx : public Subject {
public:
    Log4cxx(std::string layout, bool flush) : pattern(std::move(layout)), flushEach(flush) {}

    void SetUp(const std::string& path) override {
        const auto layout = std::make_shared<log4cxx::PatternLayout>(pattern);
        const auto appender =
            std::make_shared<log4cxx::FileAppender>(layout, path, true, !flushEach, kBufferBytes);
        appender->setImmediateFlush(flushEach);
        logger = log4cxx::Logger::getLogger("lines");
        logger->setAdditivity(false);
        logger->setLevel(log4cxx::Level::getInfo());
        logger->addAppender(appender);
    }
    void TearDown() override {
        for (const auto& appender : logger->getAllAppenders()) {
            appender->close();
        }
        logger->removeAllAppenders();
    }

protected:
    /// What the macros of the library do, with our own source position.
    template <typename Stream>
    void Write(const log4cxx::LevelPtr& level, const Stream& stream) {
        if (logger->isEnabledFor(level)) {
            log4cxx::helpers::MessageBuffer text;
            logger->forcedLog(level, text.str(stream(text)), Here());
        }
    }

private:
    static log4cxx::spi::LocationInfo Here() {
        return {kSourceFile, kSourceFile, kFunction, kSourceLine};
    }

    std::string pattern;
    bool flushEach;
    log4cxx::LoggerPtr logger;
};

class ErrorLine final : public Log4cxx {
public:
    using Log4cxx::Log4cxx;
    bool Log() override {
        Write(log4cxx::Level::getError(),
              [](log4cxx::helpers::MessageBuffer& text) -> decltype(auto) {
                  return text << "[" << kMessageKey << "] Failed password for " << kUser << " from "
                              << kAddress << " port " << kPort;
              });
        return true;
    }
};

class TraceLine final : public Log4cxx {
public:
    using Log4cxx::Log4cxx;
    bool Log() override {
        if (std::strcmp(kUser, kUnwantedUser) != 0) {
            Write(log4cxx::Level::getInfo(),
                  [](log4cxx::helpers::MessageBuffer& text) -> decltype(auto) {
                      return text << "[" << kFunction << "][" << kUser << "][" << kAddress << "]["
                                  << kStatus << "][attempt " << kAttempt << " on port "
                                  << kAttemptPort << "]";
                  });
        }
        return true;
    }
};

}  // namespace

void AddLog4cxx(Contenders& contenders) {
    Add<ErrorLine>(contenders, "error_line", kName, ErrorPattern(), true);
    Add<ErrorLine>(contenders, "error_line_buffered", kName, ErrorPattern(), false);
    Add<TraceLine>(contenders, "trace_line_bracketed", kName, std::string(kTracePattern), true);
}

}  // namespace bench
