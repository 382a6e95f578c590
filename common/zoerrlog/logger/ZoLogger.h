#ifndef ZOERRLOG_LOGGER_ZOLOGGER_H
#define ZOERRLOG_LOGGER_ZOLOGGER_H

#include <atomic>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include <zoerrlog/base/ZoExport.h>
#include <zoerrlog/base/ZoGuard.h>
#include <zoerrlog/logger/ZoCallbackOutputs.h>
#include <zoerrlog/logger/ZoErrLogComponent.h>
#include <zoerrlog/output/ZoLogOutput.h>
#include <zoerrlog/trace/ZoKnownInfo.h>

class CZoErrLogMessage;
class CZoLogger;

/// The default logger of the process, constructed by the first call and valid until the library is
/// unloaded or the process has ended. Any thread may call it.
ZOERRLOG_EXPORT CZoLogger* theLogger();

/// A set of three channels (error, trace, audit), each with its outputs.
///
/// Any thread may call any operation at any time. Writing a line takes the channel's guard for
/// reading; installing and removing outputs takes it for writing, so it waits for lines on their
/// way and holds new ones back. A call on a channel from within one of its own outputs or
/// callbacks therefore waits for itself.
///
/// Failures show as false or null; the library writes no line about its own. While a process
/// exits, the loggers close their outputs; threads that still log then get false.
class ZOERRLOG_EXPORT CZoLogger {
public:
    virtual ~CZoLogger();
    CZoLogger(const CZoLogger&) = delete;
    CZoLogger& operator=(const CZoLogger&) = delete;

    // Factories of outputs. The kind follows from the arguments; `type` is not looked at. Each
    // returns an output that the caller owns until it is installed, or null when there is no
    // memory or the arguments are refused.

    /// A console output.
    CZoLogOutput* NewLogOutput(int type);
    /// A file output; the arguments are those of CZoFileOutput::SetParams.
    CZoLogOutput* NewLogOutput(int type, const char* fileName, int mode, int maxSizeMB,
                               int maxBackups);
    CZoLogOutput* NewLogOutput(int type, ZoLogCallback callback);
    CZoLogOutput* NewLogOutput(int type, ZoLogParameterizedCallback callback, void* param);
    CZoLogOutput* NewLogOutput(int type, ZoLogAsyncCallback callback);
    CZoLogOutput* NewLogOutput(int type, ZoLogAsyncParameterizedCallback callback, void* param);

    /// Destroys an output that the caller still owns, without closing it. Null, and an output
    /// whose type code is not 0 to 5, are left alone.
    void DeleteLogOutput(CZoLogOutput* output);

    // Error channel.

    /// Closes and destroys the installed output, then opens `output` and installs it. True when it
    /// opened: the logger owns it from then on. False leaves the channel without an output, and
    /// `output` with the caller; a null `output` gives false too.
    bool SetLogOutput(CZoLogOutput* output);
    /// Closes and destroys the installed output, if any.
    void DisableLog();
    /// Hands a formatted message to the installed output; its result, or false without one or when
    /// the logger is not initialised. The message stays the caller's, unchanged.
    bool LogErrMsg(CZoErrLogMessage& message);

    // Trace channel.

    /// Hands a formatted trace line to the one or two trace outputs; true when there is at least
    /// one and each took it.
    bool LogTraceMsg(CZoErrLogMessage& message);

    // Messages and components. The texts belong to the component and are valid while it is loaded.

    /// The entry of message `id` in the component that owns it; null when the logger is not
    /// initialised, the component not loaded, or the entry missing.
    const char* FetchMsg(unsigned int id) const;
    /// The bundle name of the component that owns message `id`, or null as above.
    const char* GetMsgBundle(unsigned int id) const;
    /// The components and their sub-components: "name ; description : sub ; description&sub ;
    /// description | name ; ...". Null when the logger is not initialised.
    const char* GetAvailableComponents() const;
    /// The names of all trace data fields, separated by blanks. Null when not initialised.
    const char* GetAvailableDataFields() const;

    // Settings.

    /// Chooses local time (true) or UTC (false, the default) for log lines; the choice of the
    /// default logger holds for every record that is made without one of its own.
    void UseLocalTime(bool useLocalTime);
    bool ShouldUseLocalTime();
    /// A number kept for the host; the library does not read it. 0 at first.
    void SetExecutionTimeThreshold(int threshold);
    int GetExecutionTimeThreshold();
    /// True from the end of the initialisation until the release.
    bool Inited() const;

    /// True once a logger has released the component libraries of the process.
    static std::atomic<bool> m_bUnloadedComponents;
    /// Version of the last trace configuration that was destroyed.
    static std::atomic<int> m_iConfigVersion;

private:
    friend struct ZoLoggerAccess;
    using OutputOwner = std::unique_ptr<CZoLogOutput>;

    CZoLogger();

    void Init();
    void Release();
    void CloseForExit();
    bool InitKnownInfo();
    void DescribeComponent(CZoErrLogComponent& component);
    void AddComponentInfo(unsigned int id, const char* name);
    void DescribeDataFields();

    CZoErrLogComponent* LoadComponent(unsigned long id, const char* libraryName);
    void UnloadComponent(CZoErrLogComponent* component);
    void UnloadComponents();
    CZoErrLogComponent* FindComponent(unsigned int id) const;

    bool SetLogOutput_Unlocked(CZoLogOutput* output);
    static bool Install(OutputOwner& slot, CZoLogOutput* output);
    static void Remove(OutputOwner& slot);
    static void RemoveForExit(CZoErrLogGuard& guard, std::initializer_list<OutputOwner*> slots);

    std::atomic<bool> m_bInited;
    OutputOwner m_pErrorOutput;
    OutputOwner m_pTraceOutput;
    OutputOwner m_pTraceOutput2;
    OutputOwner m_pAuditOutput;
    std::unique_ptr<CZoErrLogComponent*[]> m_ppComponents;
    int m_iComponentCount;
    std::atomic<bool> m_bUseLocalTime;
    CZoErrLogGuard m_errorGuard;
    CZoErrLogGuard m_traceGuard;
    CZoErrLogGuard m_auditGuard;
    std::string m_strAvailableComponents;
    std::string m_strAvailableDataFields;
    std::unique_ptr<ZoTraceComponentInfo[]> m_pComponentInfo;
    int m_iComponentInfoCount;
    std::unique_ptr<ZoTraceDataFieldInfo[]> m_pDataFieldInfo;
    int m_iDataFieldCount;
    std::atomic<int> m_iExecutionTimeThreshold;

    // Owners of what the tables above point to.
    std::unique_ptr<CZoLogComponent> m_builtInComponent;
    std::vector<std::unique_ptr<ZoModuleHolder>> m_modules;  // by slot of the component table
    std::vector<std::unique_ptr<char[]>> m_compositeNames;
};

#endif
