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
#include <zoerrlog/trace/ZoTraceConfigEvent.h>

class CZoErrLogMessage;
class CZoLogger;
class CZoTraceData;
class ZoSelectionCache;

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

    // Trace channel: one output or two, and a configuration that chooses components, fields and
    // values (docs/trace-configuration.md describes the file).

    /// Reads the trace configuration `configFile` and starts tracing by it, in the layout `format`
    /// (0 bracketed, 1 columns, 2 delimited by `separator`, 3 XML). The texts are copied; a null
    /// `separator` is an empty one. `bUseLocalTime` chooses the time of all later lines of this
    /// logger. Writes a heading of two lines to each output, except in layout 3, and hands it to
    /// `output` for the files that follow.
    ///
    /// With `bKeepConfiguration` the installed configuration, layout, second output and choice of
    /// time stay, and only the first output is replaced; `output2` is then opened, but not taken
    /// over. `bBuffering` is handed to `output`.
    ///
    /// True when tracing is on; the logger then owns the outputs. On false they stay the caller's.
    /// False with nothing changed: `output` is null or `output2` the same, `output2` is given and
    /// `output` is asynchronous, the file cannot be read or its sections are out of order, or
    /// `bKeepConfiguration` is given and no configuration is installed. False otherwise: an output
    /// did not open, and the earlier outputs (and configuration, unless kept) are gone.
    bool EnableTrace(CZoLogOutput* output, CZoLogOutput* output2, int format, const char* separator,
                     const char* configFile, bool bUseLocalTime, bool bKeepConfiguration,
                     bool bBuffering);
    /// The same without a second output.
    bool EnableTrace(CZoLogOutput* output, int format, const char* separator,
                     const char* configFile, bool bUseLocalTime, bool bKeepConfiguration,
                     bool bBuffering);
    /// Closes and destroys the outputs and drops the configuration; with `bKeepConfiguration`, the
    /// first output alone.
    void DisableTrace(bool bKeepConfiguration);

    // Questions asked before a trace line is built. Each is false unless the logger is initialised
    // and has a configuration and an output. A component is given by its identifier, of which the
    // low 16 bits do not count: the identifier of one of its messages will do.

    /// True when the component is selected; for 0, when tracing is on at all.
    bool TraceEnabled(unsigned int componentId);
    /// True when the configuration traces the data field; false with the second output alone.
    bool FieldTraced(unsigned int field);
    /// True when the component is selected; `record`, the caller's own and not null, is then
    /// filled from the configuration unless it holds that already.
    bool ShouldTrace(unsigned int componentId, CZoTraceData* record);
    /// Stores the calling thread's trace record, filled from the configuration, in `*record`, and
    /// returns true. False, with nothing changed, when `record` is null or `*record` is not. The
    /// record is the thread's until the thread ends or the logger goes; the thread cleans it up
    /// after every line. May throw std::bad_alloc on a thread's first call.
    bool TraceAlloc(CZoTraceData** record);
    /// TraceAlloc if the component is selected; false if not.
    bool ShouldTraceAlloc(unsigned int componentId, CZoTraceData** record);

    /// Reads a trace configuration file as EnableTrace does, changes nothing, and tells `observer`
    /// what it met. False when EnableTrace would refuse the file.
    bool ReadTraceConfiguration(const char* configFile, const ZoTraceConfigObserver& observer);
    /// Stores the number and the address of the components and sub-components that a configuration
    /// can select, a component before its sub-components; true, or false when the logger is not
    /// initialised. They belong to the logger.
    bool GetTraceComponents(int* count, const ZoTraceComponentInfo** components) const;

    /// Hands a formatted trace line to the one or two trace outputs; true when there is at least
    /// one and each took it.
    bool LogTraceMsg(CZoErrLogMessage& message);

    // Audit channel: as the error channel.

    bool EnableAuditLogRollover(CZoLogOutput* output);
    void DisableAuditLog();
    bool LogAuditMsg(CZoErrLogMessage& message);

    // Messages and components. The texts belong to the component and are valid while it is loaded.

    /// The entry of message `id` in the component that owns it; null when the logger is not
    /// initialised, the component not loaded, or the entry missing.
    const char* FetchMsg(unsigned int id) const;
    /// The bundle name of the component that owns message `id`, or null as above.
    const char* GetMsgBundle(unsigned int id) const;
    /// What FetchMsg and GetMsgBundle give for message `id`.
    struct MessageEntry {
        const char* entry;
        const char* bundleName;
    };
    MessageEntry FindMessage(unsigned int id) const;
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
    /// The highest version of a trace configuration that was dropped. Every configuration gets a
    /// higher version than all earlier ones of the process.
    static std::atomic<int> m_iConfigVersion;

private:
    friend struct ZoLoggerAccess;
    friend class CZoLoggerList;
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
    bool LogTo(CZoErrLogGuard& guard, const OutputOwner& output, CZoErrLogMessage& message);
    static void RemoveForExit(CZoErrLogGuard& guard, std::initializer_list<OutputOwner*> slots);

    struct Heading;

    std::unique_ptr<CZoTraceData> ReadConfiguration(int format, const char* separator,
                                                    const char* configFile, bool useLocalTime,
                                                    const ZoTraceConfigObserver* observer);
    void RemoveTraceOutputs(bool keepSecond);
    bool InstallTraceOutputs(CZoLogOutput* output, CZoLogOutput* output2, bool keepSecond,
                             bool buffering);
    void InstallConfiguration(std::unique_ptr<CZoTraceData> configuration);
    void DropConfiguration();
    void PublishTraceState();
    void BeginTraceChange();

    struct QuickAnswer;
    bool MayTrace() const;
    QuickAnswer AskUnguarded(unsigned int componentId) const;
    bool IsTracing() const;
    bool IsTracing(unsigned int componentId);
    bool IsTracingForSure(unsigned int componentId);
    bool ShouldTraceForSure(unsigned int componentId, CZoTraceData& record);
    bool ShouldTraceAllocForSure(unsigned int componentId, CZoTraceData** record);
    bool HandOutRecord(CZoTraceData** record);
    void Refresh(CZoTraceData& record) const;
    CZoTraceData* RecordOfThread();

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
    const ZoTraceDataFieldInfo* m_pDataFieldInfo;  // the same for all loggers
    int m_iDataFieldCount;
    std::unique_ptr<CZoTraceData> m_pTraceData;            // the installed configuration
    std::unique_ptr<ZoSelectionCache> m_aComponentTraced;  // from the first configuration on
    // For a look without the guard: the cache while there is a configuration and an output, null
    // otherwise; and the version of that configuration, 0 while any of it is being changed.
    std::atomic<const ZoSelectionCache*> m_selection;
    std::atomic<int> m_tracedVersion;
    unsigned long m_dwTlsIndex;  // 0 for none
    std::atomic<int> m_iExecutionTimeThreshold;

    // Owners of what the tables above point to.
    std::unique_ptr<CZoLogComponent> m_builtInComponent;
    std::vector<std::unique_ptr<ZoModuleHolder>> m_modules;  // by slot of the component table
    std::vector<std::unique_ptr<char[]>> m_compositeNames;
};

#endif
