#include <zoerrlog/output/ZoLogOutput.h>

namespace {

constexpr int kNoType = -1;

}  // namespace

CZoLogOutput::CZoLogOutput() : m_iType(kNoType) {
}

CZoLogOutput::~CZoLogOutput() = default;

bool CZoLogOutput::Flush() {
    return true;
}

void CZoLogOutput::EnableBuffering(bool /*on*/) {
}

bool CZoLogOutput::IsBufferingEnabled() {
    return false;
}

bool CZoLogOutput::IsBufferingSupported() {
    return false;
}

void CZoLogOutput::SetHeaders(CZoErrLogMessage& /*first*/, CZoErrLogMessage& /*second*/) {
}

bool CZoLogOutput::IsAsync() {
    return false;
}
