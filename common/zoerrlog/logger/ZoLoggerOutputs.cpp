#include <memory>
#include <new>

#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/output/ZoConsoleOutput.h>
#include <zoerrlog/output/ZoFileOutput.h>
#include <zoerrlog/output/ZoOutputTypes.h>

namespace {

template <typename Output, typename... Parameters>
CZoLogOutput* Make(Parameters... parameters) {
    std::unique_ptr<Output> output(new (std::nothrow) Output);
    if (output == nullptr || !output->SetParams(parameters...)) {
        return nullptr;
    }
    return output.release();
}

}  // namespace

CZoLogOutput* CZoLogger::NewLogOutput(int /*type*/) {
    return Make<CZoConsoleOutput>();
}

CZoLogOutput* CZoLogger::NewLogOutput(int /*type*/, const char* fileName, int mode, int maxSizeMB,
                                      int maxBackups) {
    return Make<CZoFileOutput>(fileName, mode, maxSizeMB, maxBackups);
}

CZoLogOutput* CZoLogger::NewLogOutput(int /*type*/, ZoLogCallback callback) {
    return Make<CZoSyncCallbackOutput>(callback);
}

CZoLogOutput* CZoLogger::NewLogOutput(int /*type*/, ZoLogParameterizedCallback callback,
                                      void* param) {
    return Make<CZoSyncParameterizedCallbackOutput>(callback, param);
}

CZoLogOutput* CZoLogger::NewLogOutput(int /*type*/, ZoLogAsyncCallback callback) {
    return Make<CZoAsyncCallbackOutput>(callback);
}

CZoLogOutput* CZoLogger::NewLogOutput(int /*type*/, ZoLogAsyncParameterizedCallback callback,
                                      void* param) {
    return Make<CZoAsyncParameterizedCallbackOutput>(callback, param);
}

void CZoLogger::DeleteLogOutput(CZoLogOutput* output) {
    if (output != nullptr && zoerrlog::output::IsOwnType(output->GetType())) {
        const OutputOwner owner(output);
    }
}

bool CZoLogger::Install(OutputOwner& slot, CZoLogOutput* output) {
    Remove(slot);
    if (output == nullptr || !output->Open()) {
        return false;
    }
    slot.reset(output);
    return true;
}

void CZoLogger::Remove(OutputOwner& slot) {
    // Emptied first: a child forked by another thread meanwhile finds no half-closed output.
    const OutputOwner removed = std::move(slot);
    if (removed != nullptr) {
        removed->Close();
    }
}
