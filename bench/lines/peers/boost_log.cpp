// Process id, thread id, time and severity are attributes that the sink's formatter lays out. The
// source position is no field of the library; it goes in front of the message, which costs less
// than an attribute for it. Fractions of a second are microseconds; there is no shorter form.
#include <unistd.h>

#include <cstring>
#include <fstream>

#include <bench/lines/subject.h>
#include <bench/paths/line_texts.h>
#include <boost/date_time/posix_time/posix_time_types.hpp>
#include <boost/log/attributes/clock.hpp>
#include <boost/log/attributes/constant.hpp>
#include <boost/log/attributes/current_thread_id.hpp>
#include <boost/log/core.hpp>
#include <boost/log/expressions.hpp>
#include <boost/log/sinks/sync_frontend.hpp>
#include <boost/log/sinks/text_ostream_backend.hpp>
#include <boost/log/sources/record_ostream.hpp>
#include <boost/log/sources/severity_logger.hpp>
#include <boost/log/support/date_time.hpp>
#include <boost/log/trivial.hpp>
#include <boost/make_shared.hpp>

namespace bench {
namespace {

namespace attributes = boost::log::attributes;
namespace expressions = boost::log::expressions;
using boost::log::trivial::severity_level;
using boost::posix_time::ptime;
using Sink = boost::log::sinks::synchronous_sink<boost::log::sinks::text_ostream_backend>;
using ThreadId = attributes::current_thread_id::value_type;

constexpr const char* kName = "boost_log";
constexpr const char* kTraceBegin = "[##/##/####][##:##:##.######][";

boost::log::formatter ErrorPattern() {
    return expressions::stream << '[' << expressions::attr<int>("Process") << '/'
                               << expressions::attr<ThreadId>("Thread") << "]["
                               << expressions::format_date_time<ptime>("Time",
                                                                       "%a %b %d %Y %H:%M:%S")
                               << "][" << expressions::attr<severity_level>("Severity") << ']'
                               << expressions::smessage;
}

boost::log::formatter TracePattern() {
    return expressions::stream << '['
                               << expressions::format_date_time<ptime>("Time",
                                                                       "%m/%d/%Y][%H:%M:%S.%f")
                               << "][" << expressions::attr<ThreadId>("Thread") << ']'
                               << expressions::smessage;
}

class BoostLog : public Subject {
public:
    BoostLog(boost::log::formatter layout, bool flush)
        : pattern(std::move(layout)), flushEach(flush) {
        logger.add_attribute("Process", attributes::constant<int>(getpid()));
        logger.add_attribute("Thread", attributes::current_thread_id());
        logger.add_attribute("Time", attributes::utc_clock());
    }

    void SetUp(const std::string& path) override {
        const auto backend = boost::make_shared<boost::log::sinks::text_ostream_backend>();
        backend->add_stream(boost::make_shared<std::ofstream>(path, std::ios::app));
        backend->auto_flush(flushEach);
        sink = boost::make_shared<Sink>(backend);
        sink->set_formatter(pattern);
        boost::log::core::get()->add_sink(sink);
    }
    void TearDown() override {
        boost::log::core::get()->remove_sink(sink);
        sink->flush();
        sink.reset();
    }

protected:
    boost::log::sources::severity_logger_mt<severity_level> logger;

private:
    boost::log::formatter pattern;
    bool flushEach;
    boost::shared_ptr<Sink> sink;
};

class ErrorLine final : public BoostLog {
public:
    using BoostLog::BoostLog;
    bool Log() override {
        BOOST_LOG_SEV(logger, severity_level::error)
            << '[' << kSourceFile << ':' << kSourceLine << "][" << kMessageKey
            << "] Failed password for " << kUser << " from " << kAddress << " port " << kPort;
        return true;
    }
};

class TraceLine final : public BoostLog {
public:
    using BoostLog::BoostLog;
    bool Log() override {
        if (std::strcmp(kUser, kUnwantedUser) != 0) {
            BOOST_LOG_SEV(logger, severity_level::info)
                << '[' << kFunction << "][" << kUser << "][" << kAddress << "][" << kStatus
                << "][attempt " << kAttempt << " on port " << kAttemptPort << ']';
        }
        return true;
    }
};

}  // namespace

void AddBoostLog(Contenders& contenders) {
    Add<ErrorLine>(contenders, "error_line", kName, ErrorPattern(), true);
    Add<ErrorLine>(contenders, "error_line_buffered", kName, ErrorPattern(), false);
    Add<TraceLine>(contenders, "trace_line_bracketed", kName, TracePattern(), true).begin =
        kTraceBegin;
}

}  // namespace bench
