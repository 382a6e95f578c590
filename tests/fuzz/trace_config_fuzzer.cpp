// Gives the reader of trace configurations arbitrary bytes, once for what it tells about them and
// once to trace a line by them.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include <zoerrlog/zoerrlog.h>

namespace {

constexpr unsigned int kComponent = 0x01010000;  // Log/Legacy, which is always there
constexpr int kBracketed = 0;
constexpr int kCallbackType = 4;

void Check(bool holds, const char* what) {
    if (!holds) {
        std::cerr << "does not hold: " << what << '\n';
        std::abort();
    }
}

/// A file of these bytes, without a place in any directory.
class MemoryFile {
public:
    MemoryFile(const std::uint8_t* data, std::size_t size) : m_descriptor(memfd_create("fuzz", 0)) {
        Check(write(m_descriptor, data, size) == static_cast<ssize_t>(size), "the input is stored");
    }
    ~MemoryFile() { close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string Name() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

private:
    int m_descriptor;
};

int LowestFreeDescriptor() {
    const int descriptor = dup(STDERR_FILENO);
    close(descriptor);
    return descriptor;
}

/// What an observer was told, with every byte of every text looked at.
struct Told {
    std::size_t fields = 0;
    int lastLine = 0;
    std::string text;

    void Take(const ZoTraceConfigEvent& event) {
        fields += event.kind == ZoTraceConfigEventKind::kField ? 1 : 0;
        Check(event.line == 0 || event.line >= lastLine, "lines come in their order");
        lastLine = event.line == 0 ? lastLine : event.line;
        text.append(event.text);
        if (event.component != nullptr) {
            text.append(event.component->name);
        }
        if (event.field != nullptr) {
            text.append(event.field->name);
            text.append(event.field->filterValue != nullptr ? event.field->filterValue : "");
        }
    }
};

void AppendLine(const char* text, int length, void* lines) {
    static_cast<std::string*>(lines)->append(text, static_cast<std::size_t>(length));
}

std::size_t Columns(std::string_view line) {
    std::size_t columns = 0;
    for (const char byte : line) {
        columns += byte == '[' ? 1 : 0;
    }
    return columns;
}

void TraceLine() {
    CZoTraceData* record = nullptr;
    if (!theLogger()->ShouldTraceAlloc(kComponent, &record)) {
        return;
    }
    bool passed = true;
    for (unsigned int field = 0; field < kZoDataFieldCount; ++field) {
        if (record->FieldTraced(field) || record->FieldFiltered(field)) {
            passed = record->SetFieldValue(field, field % 2 == 0 ? "value" : "") && passed;
        }
    }
    if (passed) {
        Check(record->Format() && record->Log(), "a line that passes the filters is logged");
    }
    record->LeaveNoBody();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CZoLogger& logger = *theLogger();
    const MemoryFile file(data, size);
    const int descriptor = LowestFreeDescriptor();
    Told told;
    const bool read = logger.ReadTraceConfiguration(
        file.Name().c_str(), [&told](const ZoTraceConfigEvent& event) { told.Take(event); });

    std::string lines;
    CZoLogOutput* const output = logger.NewLogOutput(kCallbackType, &AppendLine, &lines);
    const bool enabled =
        logger.EnableTrace(output, kBracketed, nullptr, file.Name().c_str(), false, false, false);
    Check(enabled == read, "tracing starts with what can be read");
    Check(LowestFreeDescriptor() == descriptor, "the file is closed");
    if (!enabled) {
        logger.DeleteLogOutput(output);
        return 0;
    }
    Check(Columns(lines.substr(0, lines.find('\n'))) == told.fields, "the fields are the columns");
    TraceLine();
    logger.DisableTrace(false);
    return 0;
}
