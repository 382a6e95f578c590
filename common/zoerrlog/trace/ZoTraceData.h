#ifndef ZOERRLOG_TRACE_ZOTRACEDATA_H
#define ZOERRLOG_TRACE_ZOTRACEDATA_H

#include <cstdarg>
#include <cstddef>
#include <memory>
#include <string_view>

#include <zoerrlog/base/ZoExport.h>
#include <zoerrlog/message/ZoErrLogMessage.h>
#include <zoerrlog/trace/ZoFieldSet.h>
#include <zoerrlog/trace/ZoFieldValues.h>
#include <zoerrlog/trace/ZoKnownInfo.h>
#include <zoerrlog/trace/ZoTraceConfigEvent.h>

class CZoLogger;
class ZoTraceConfigReader;
class ZoTraceDataPool;
struct ZoTraceSettings;

/// A trace record: collects the field values of one trace line, tests them against the filters,
/// lays the line out and logs it. Loggers use the same class to hold a trace configuration.
///
/// A line takes these steps. Any setter that gives false ends it at step 4: a filter rejects it.
///   1. CZoLogger::ShouldTraceAlloc gives the thread its record if the component is traced.
///   2. For each field that the caller knows and FieldTraced reports: SetFieldValue. The text of
///      field 0 ("Message") is made with FormatTraceMessage. For fields 2 ("Pid") and 3 ("Tid") and
///      the clock fields 4, 5 and 6, any integer will do: the record fills them itself.
///   3. Format, then Log.
///   4. LeaveNoBody, always.
/// A traced field that is not set for a line shows as empty.
///
/// Fields are given by number, one of ZoDataField. A record is used by one thread at a time. What
/// it took over from a configuration it keeps until a logger refreshes it, also when that
/// configuration is gone. Operations that store a text, or make the line longer, may throw
/// std::bad_alloc; once a record has room for lines of usual length, they allocate nothing.
class ZOERRLOG_EXPORT CZoTraceData {
public:
    /// A record without a configuration, for callers of CZoLogger::ShouldTrace. It takes some 4 KB.
    CZoTraceData();
    virtual ~CZoTraceData();
    CZoTraceData(const CZoTraceData&) = delete;

    // Setters. Each stores the value as text and returns true, or false when the field has a filter
    // that the value does not pass; the value stays stored all the same. A field number of 66 or
    // more gives false and changes nothing.

    /// A decimal number. Fields 2 and 3 take the process id and the calling thread's id instead.
    /// Of the fields 4, 5 and 6 ("Date", "Time", "PreciseTime"), the highest that is traced fills
    /// all three from the clock, and the result is that of their filters; the others, and all three
    /// when none is traced, store nothing and give true.
    bool SetFieldValue(unsigned int id, int value);
    bool SetFieldValue(unsigned int id, long value);
    /// A decimal number, in every field.
    bool SetFieldValue(unsigned int id, unsigned int value);
    bool SetFieldValue(unsigned int id, unsigned long value);
    bool SetFieldValue(unsigned int id, long long value);
    bool SetFieldValue(unsigned int id, unsigned long long value);
    /// Six decimals and a point, whatever the process's locale; "inf", "nan" and the like.
    bool SetFieldValue(unsigned int id, double value);
    /// "true" or "false".
    bool SetFieldValue(unsigned int id, bool value);
    /// A copy of the text; null is an empty one. Field 1 ("SrcFile") takes its first 1023 bytes.
    bool SetFieldValue(unsigned int id, const char* value);

    /// True when the configuration names the field for the trace line.
    bool FieldTraced(unsigned int id) const { return m_traced.Has(id); }
    /// True when the configuration has a filter on the field.
    bool FieldFiltered(unsigned int id) const { return m_filtered.Has(id); }
    /// True when the configuration selects exactly this component or sub-component.
    bool ComponentSelected(unsigned int id) const;

    /// A printf-style text of any length, empty for a null or empty format. It belongs to the
    /// record and is valid until its next FormatTraceMessage or clean-up; it must not be an
    /// argument of the next one.
    ZOERRLOG_PRINTF(2, 3)
    const char* FormatTraceMessage(const char* format, ...);
    ZOERRLOG_PRINTF(2, 0)
    const char* FormatTraceMessageVA(const char* format, va_list args);

    /// Appends a line of the traced fields to the record's text, in the configured order and
    /// layout. False when it cannot be laid out.
    bool Format();
    /// The record's text; valid until it changes.
    const char* GetFormattedTraceMessage();
    /// Hands the record's text to the trace channel of its logger; the channel's result.
    bool Log();

    /// The logger that Log uses; null stands for the default logger. A record from a logger logs
    /// there until the host chooses another; that choice holds until the record is given back.
    void SetLogger(CZoLogger* logger);
    /// The record's logger, or the default logger.
    CZoLogger* GetLogger();

    /// Empties all values and texts, for the next line. True. Does nothing to a record that has no
    /// configuration yet.
    bool CleanUpData();
    /// The same.
    void LeaveNoBody();

private:
    friend class CZoLogger;
    friend class ZoTraceConfigReader;
    friend class ZoTraceDataPool;

    /// What a line made by AssembleTraceMessage consists of; any other number underlines with "=".
    enum LineKind { kValues = 0, kNames = 1, kDashes = 2, kUnderline = 3 };

    CZoTraceData& operator=(const CZoTraceData& source);

    bool SetConfiguration(int format, const char* separator, const char* fileName,
                          int componentCount, const ZoTraceComponentInfo* components,
                          const ZoTraceDataFieldInfo* fields, bool localTime,
                          const ZoTraceConfigObserver* observer = nullptr);
    bool ReadConfigFile(const char* fileName, const ZoTraceConfigObserver* observer = nullptr);
    ZoTraceComponentInfo* GetComponentInfo(unsigned int id) const;
    ZoTraceComponentInfo* GetComponentInfo(std::string_view name) const;
    template <typename Condition>
    ZoTraceComponentInfo* FindComponent(Condition condition) const;
    ZoTraceDataFieldInfo* GetDataFieldInfo(std::string_view name) const;
    bool MarkComponentTraced(unsigned int id);
    bool MarkFieldTraced(ZoTraceDataFieldInfo& field);
    void SetFilter(ZoTraceDataFieldInfo& field, unsigned int filterOperator,
                   std::string_view value);

    bool SetKnownOrNumber(unsigned int id, long value);
    bool SetText(unsigned int id, std::string_view value);
    bool StoreAndTest(unsigned int id, std::string_view value);
    bool TestDataFilter(unsigned int id) const;
    bool PopulateDateandTime();

    bool AssembleTraceMessage(CZoErrLogMessage* message, int kind);
    template <typename TextOf>
    void AppendFields(CZoErrLogMessage& message, std::size_t textSize, TextOf textOf) const;
    void AppendValues(CZoErrLogMessage& message) const;
    void AppendHeading(CZoErrLogMessage& message, int kind) const;
    const char* FormatLongMessage(std::size_t length, const char* format, va_list args);

    void ClearValues();
    void Recycle();

    bool m_bConfigured;
    bool m_bLocalTime;
    int m_iFormat;
    ZoFieldSet m_traced;
    ZoFieldSet m_filtered;
    // The rest of what was read: immutable then, and shared by every record that was filled from
    // the configuration.
    std::shared_ptr<ZoTraceSettings> m_settings;
    ZoFieldValues m_values;
    CZoErrLogMessage m_message;
    char m_messageText[kZoInlineValueSize];
    std::unique_ptr<char[]> m_longMessageText;
    int m_iConfigVersion;
    CZoLogger* m_pLogger;
    bool m_bLoggerChosen;
    int m_iDateTimeLevel;
};

#endif
