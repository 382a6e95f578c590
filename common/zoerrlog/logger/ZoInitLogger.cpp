#include <zoerrlog/logger/ZoInitLogger.h>

#include <memory>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/output/ZoFileOutput.h>

namespace {

constexpr int kFileType = 1;

struct DeleteOutput {
    void operator()(CZoLogOutput* output) const { theLogger()->DeleteLogOutput(output); }
};
using OutputOwner = std::unique_ptr<CZoLogOutput, DeleteOutput>;

bool IsEmpty(const char* text) {
    return text == nullptr || *text == '\0';
}

// Makes a backup of what an earlier run left, so that the file can then be limited by its size.
void BackUp(const char* traceFile, int maxSizeMB, int maxBackups) {
    const OutputOwner output(theLogger()->NewLogOutput(
        kFileType, traceFile, CZoFileOutput::RolloverAtOpen, maxSizeMB, maxBackups));
    if (output != nullptr) {
        // Where this fails, the output that comes next tells.
        static_cast<void>(output->Open());
    }
}

int ModeFor(bool append, int maxSizeMB) {
    if (maxSizeMB > 0) {
        return CZoFileOutput::RolloverBySize;
    }
    return append ? CZoFileOutput::Append : CZoFileOutput::RolloverAtOpen;
}

}  // namespace

bool ZoInitLogger(bool bAppend, bool bUseLocalTime, int maxSizeMB, int format,
                  const char* separator, const char* configFile, const char* traceFile,
                  int maxBackups) {
    if (IsEmpty(configFile) || IsEmpty(traceFile)) {
        return false;
    }
    CZoLogger& logger = *theLogger();
    logger.UseLocalTime(bUseLocalTime);
    const int mode = ModeFor(bAppend, maxSizeMB);
    if (!bAppend && mode == CZoFileOutput::RolloverBySize) {
        BackUp(traceFile, maxSizeMB, maxBackups);
    }
    OutputOwner output(logger.NewLogOutput(kFileType, traceFile, mode, maxSizeMB, maxBackups));
    if (output == nullptr ||
        !logger.EnableTrace(output.get(), format, IsEmpty(separator) ? nullptr : separator,
                            configFile, bUseLocalTime, false, false)) {
        return false;
    }
    static_cast<void>(output.release());
    return true;
}
