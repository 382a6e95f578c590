#include <zolog/replay/logs.h>

#include <cerrno>
#include <memory>
#include <string>
#include <system_error>

#include <zoerrlog/zoerrlog.h>
#include <zoi18n/zoi18n.h>
#include <zoxlate/zoxlate.h>

#include <zolog/command.h>
#include <zolog/replay/replay_options.h>

namespace fs = std::filesystem;

namespace zolog {

namespace {

// The logger's factories tell the kind of output by their arguments; these say it to the reader.
constexpr int kConsoleType = 0;
constexpr int kFileType = 1;

// The order in which the files are reported.
enum Log : std::size_t { kErrorLog, kTraceLog, kAuditLog };
const char* const kStems[] = {"error", "trace", "audit"};

// An output belongs to its creator until the logger has taken it.
struct OutputDeleter {
    void operator()(CZoLogOutput* output) const { theLogger()->DeleteLogOutput(output); }
};
using OutputOwner = std::unique_ptr<CZoLogOutput, OutputDeleter>;

// What is installed beside the program; empty when that cannot be told.
fs::path SharedDirectory() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::path() : program.parent_path().parent_path() / "share/zoerrlog";
}

void UseResources(const std::string& chosen) {
    if (!chosen.empty()) {
        if (!CZoXlate::SetResourceDirectory(chosen.c_str())) {
            throw CommandError("cannot use the resources '" + chosen + "': not a directory");
        }
        return;
    }
    // Where there is none, the library's own directory stays.
    static_cast<void>(CZoXlate::SetResourceDirectory((SharedDirectory() / "resources").c_str()));
}

void UseLocale(const std::string& locale) {
    if (!locale.empty() && !ZoSetAdminLocale(locale.c_str())) {
        throw CommandError("cannot use the locale '" + locale + "': not a locale name");
    }
}

[[noreturn]] void FailToReadConfig(const std::string& config, const std::string& reason) {
    throw CommandError("cannot read the trace configuration '" + config + "': " + reason);
}

// The trace configuration to use, which is there. It is not opened: a pipe gives its text once.
std::string TraceConfig(const ReplayOptions& options) {
    const fs::path config = options.traceConfig.empty() ? SharedDirectory() / "sshd-trace.conf"
                                                        : fs::path(options.traceConfig);
    std::error_code error;
    if (!fs::exists(config, error)) {
        FailToReadConfig(
            config.string(),
            error ? error.message()
                  : std::make_error_code(std::errc::no_such_file_or_directory).message());
    }
    return config.string();
}

// `file` is null for the console.
[[noreturn]] void FailToOpen(const LogFile* file) {
    if (file == nullptr) {
        throw CommandError("cannot open the console: there is no standard output");
    }
    throw CommandError("cannot open '" + file->Path().string() + "': " + file->WhyNotOpened());
}

[[noreturn]] void FailToTrace(const std::string& config, const LogFile* file) {
    int readError = 0;
    int wrongLine = 0;
    const bool usable = theLogger()->ReadTraceConfiguration(
        config.c_str(), [&readError, &wrongLine](const ZoTraceConfigEvent& event) {
            if (event.kind == ZoTraceConfigEventKind::kUnreadable) {
                readError = errno;
            }
            if (event.kind == ZoTraceConfigEventKind::kWrongSection) {
                wrongLine = event.line;
            }
        });
    if (readError != 0) {
        FailToReadConfig(config, std::generic_category().message(readError));
    }
    if (!usable) {
        throw CommandError("cannot use the trace configuration '" + config +
                           "': its sections are out of order at line " + std::to_string(wrongLine) +
                           "; see zolog check " + config);
    }
    FailToOpen(file);
}

OutputOwner NewOutput(const LogFile* file, const ReplayOptions& options) {
    CZoLogger* const logger = theLogger();
    return OutputOwner(file == nullptr
                           ? logger->NewLogOutput(kConsoleType)
                           : logger->NewLogOutput(kFileType, file->Path().c_str(), options.mode,
                                                  options.maxSizeMB, options.backups));
}

// `install` gives a new output to the logger; false when that does not take it.
template <typename Install>
bool Open(const LogFile* file, const ReplayOptions& options, Install install) {
    OutputOwner output = NewOutput(file, options);
    if (output == nullptr || !install(output.get())) {
        return false;
    }
    static_cast<void>(output.release());
    return true;
}

bool OpenTrace(const LogFile* file, const ReplayOptions& options, const std::string& config) {
    return Open(file, options, [&options, &config](CZoLogOutput* output) {
        constexpr bool kKeepConfiguration = false;
        constexpr bool kBuffering = false;
        return theLogger()->EnableTrace(output, options.format, options.separator.c_str(),
                                        config.c_str(), options.localTime, kKeepConfiguration,
                                        kBuffering);
    });
}

}  // namespace

Logs::Logs(const ReplayOptions& options) {
    UseResources(options.resources);
    UseLocale(options.locale);
    theLogger()->UseLocalTime(options.localTime);
    const std::string config = TraceConfig(options);
    if (!options.console) {
        const fs::path directory = MakeLogDirectory(options.outDirectory);
        m_files.reserve(std::size(kStems));
        for (const char* const stem : kStems) {
            m_files.emplace_back(directory, stem);
        }
    }
    const auto file = [this](Log log) { return m_files.empty() ? nullptr : &m_files[log]; };

    // The trace comes first: when its configuration is refused, no file has been touched.
    if (!OpenTrace(file(kTraceLog), options, config)) {
        FailToTrace(config, file(kTraceLog));
    }
    if (!Open(file(kErrorLog), options,
              [](CZoLogOutput* output) { return theLogger()->SetLogOutput(output); })) {
        FailToOpen(file(kErrorLog));
    }
    if (!Open(file(kAuditLog), options,
              [](CZoLogOutput* output) { return theLogger()->EnableAuditLogRollover(output); })) {
        FailToOpen(file(kAuditLog));
    }
}

void Logs::Channels::Disable() {
    theLogger()->DisableLog();
    theLogger()->DisableTrace(false);
    theLogger()->DisableAuditLog();
}

std::vector<WrittenFile> Logs::Close() {
    m_channels.Disable();
    std::vector<WrittenFile> files;
    for (const LogFile& file : m_files) {
        const std::vector<WrittenFile> written = file.Written();
        files.insert(files.end(), written.begin(), written.end());
    }
    return files;
}

}  // namespace zolog
