#include <algorithm>
#include <memory>

#include <zoerrlog/logger/ZoConfigVersion.h>
#include <zoerrlog/logger/ZoLogger.h>
#include <zoerrlog/logger/ZoSelectionCache.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/trace/ZoTraceData.h>

using namespace zoerrlog::logger;

/// The two lines that head a trace file.
struct CZoLogger::Heading {
    explicit Heading(CZoTraceData& configuration)
        : usable(configuration.AssembleTraceMessage(&names, CZoTraceData::kNames) &&
                 configuration.AssembleTraceMessage(&underline, CZoTraceData::kUnderline)) {}

    void WriteTo(CZoLogOutput& output) {
        // The heading is a courtesy: an output that refuses it will refuse lines, and say so.
        static_cast<void>(output.Log(names));
        static_cast<void>(output.Log(underline));
    }

    CZoErrLogMessage names;
    CZoErrLogMessage underline;
    bool usable;
};

bool CZoLogger::EnableTrace(CZoLogOutput* output, int format, const char* separator,
                            const char* configFile, bool bUseLocalTime, bool bKeepConfiguration,
                            bool bBuffering) {
    return EnableTrace(output, nullptr, format, separator, configFile, bUseLocalTime,
                       bKeepConfiguration, bBuffering);
}

bool CZoLogger::EnableTrace(CZoLogOutput* output, CZoLogOutput* output2, int format,
                            const char* separator, const char* configFile, bool bUseLocalTime,
                            bool bKeepConfiguration, bool bBuffering) {
    if (output == nullptr || output == output2 || (output2 != nullptr && output->IsAsync())) {
        return false;
    }
    // Read before the guard is taken: lines go on while the file is read.
    auto configuration = ReadConfiguration(format, separator, configFile, bUseLocalTime, nullptr);
    if (configuration == nullptr) {
        return false;
    }
    Heading heading(*configuration);

    const CZoErrLogAutoWriter hold(m_traceGuard);
    if (bKeepConfiguration && m_pTraceData == nullptr) {
        return false;
    }
    BeginTraceChange();
    RemoveTraceOutputs(bKeepConfiguration);
    if (!bKeepConfiguration) {
        DropConfiguration();
    }
    const bool installed = InstallTraceOutputs(output, output2, bKeepConfiguration, bBuffering);
    if (installed && !bKeepConfiguration) {
        InstallConfiguration(std::move(configuration));
    }
    PublishTraceState();
    if (installed && heading.usable) {
        m_pTraceOutput->SetHeaders(heading.names, heading.underline);
        heading.WriteTo(*m_pTraceOutput);
        if (m_pTraceOutput2 != nullptr && !bKeepConfiguration) {
            heading.WriteTo(*m_pTraceOutput2);
        }
    }
    return installed;
}

void CZoLogger::DisableTrace(bool bKeepConfiguration) {
    const CZoErrLogAutoWriter hold(m_traceGuard);
    BeginTraceChange();
    RemoveTraceOutputs(bKeepConfiguration);
    if (!bKeepConfiguration) {
        DropConfiguration();
    }
    PublishTraceState();
}

std::unique_ptr<CZoTraceData> CZoLogger::ReadConfiguration(int format, const char* separator,
                                                           const char* configFile,
                                                           bool useLocalTime,
                                                           const ZoTraceConfigObserver* observer) {
    auto configuration = std::make_unique<CZoTraceData>();
    if (!configuration->SetConfiguration(format, separator, configFile, m_iComponentInfoCount,
                                         m_pComponentInfo.get(), m_pDataFieldInfo, useLocalTime,
                                         observer)) {
        return nullptr;
    }
    return configuration;
}

bool CZoLogger::ReadTraceConfiguration(const char* configFile,
                                       const ZoTraceConfigObserver& observer) {
    return ReadConfiguration(0, nullptr, configFile, false, &observer) != nullptr;
}

void CZoLogger::RemoveTraceOutputs(bool keepSecond) {
    Remove(m_pTraceOutput);
    if (!keepSecond) {
        Remove(m_pTraceOutput2);
    }
}

void CZoLogger::DropConfiguration() {
    if (m_pTraceData != nullptr) {
        NoteDroppedVersion(m_pTraceData->m_iConfigVersion);
        m_pTraceData.reset();
    }
}

// Opens both outputs before either is taken over, so that on failure both are the caller's.
bool CZoLogger::InstallTraceOutputs(CZoLogOutput* output, CZoLogOutput* output2, bool keepSecond,
                                    bool buffering) {
    if (!output->Open()) {
        return false;
    }
    output->EnableBuffering(buffering);
    if (output2 != nullptr && !output2->Open()) {
        output->Close();
        return false;
    }
    m_pTraceOutput.reset(output);
    if (!keepSecond) {
        m_pTraceOutput2.reset(output2);
    }
    return true;
}

void CZoLogger::InstallConfiguration(std::unique_ptr<CZoTraceData> configuration) {
    configuration->m_iConfigVersion = NextConfigVersion();
    configuration->m_pLogger = this;
    for (const unsigned int field : {kZoFieldDate, kZoFieldTime, kZoFieldPreciseTime}) {
        if (configuration->FieldTraced(field)) {
            configuration->m_iDateTimeLevel = static_cast<int>(field);
        }
    }
    UseLocalTime(configuration->m_bLocalTime);
    if (m_aComponentTraced == nullptr) {
        m_aComponentTraced = std::make_unique<ZoSelectionCache>();
    }
    m_aComponentTraced->Reset();
    m_pTraceData = std::move(configuration);
}

// From here to the publication every question but a "no" from the cache waits for the guard.
void CZoLogger::BeginTraceChange() {
    m_tracedVersion.store(0, std::memory_order_release);
}

void CZoLogger::PublishTraceState() {
    const bool hasOutput = m_pTraceOutput != nullptr || m_pTraceOutput2 != nullptr;
    const bool tracing = m_pTraceData != nullptr && hasOutput;
    m_selection.store(tracing ? m_aComponentTraced.get() : nullptr, std::memory_order_release);
    m_tracedVersion.store(tracing ? m_pTraceData->m_iConfigVersion : 0, std::memory_order_release);
}
