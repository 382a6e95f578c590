#ifndef ZOERRLOG_TRACE_ZOTRACECONFIGEVENT_H
#define ZOERRLOG_TRACE_ZOTRACECONFIGEVENT_H

#include <functional>
#include <string_view>

#include <zoerrlog/trace/ZoKnownInfo.h>

/// Something that the reader of a trace configuration file met. Each kind says which members of
/// ZoTraceConfigEvent it fills; the others are empty or null.
enum class ZoTraceConfigEventKind {
    kVersion,           ///< a version line that says 1.1; text: what it says
    kOtherVersion,      ///< a version line that says something else, or nothing; text
    kNoVersion,         ///< at the end: no version line said 1.1
    kComponent,         ///< a component or sub-component was named; component
    kUnknownComponent,  ///< text: the name
    kOlderFileRule,     ///< at the end: added because the file does not say 1.1; component
    kField,             ///< a field was added to the line; field
    kRepeatedField,     ///< a field was named again, which changes nothing; field
    kUnknownField,      ///< text: the name
    kFilter,            ///< a filter was set; field, with its operator and value
    kReplacedFilter,  ///< comes before kFilter: it replaces an earlier filter; field, with that one
    kUnknownFilter,   ///< a filter line of no known field; text: its first word
    kNoDelimiter,   ///< as kUnknownFilter, but an operator stands right behind a field; field, text
    kNoOperator,    ///< a filter line without an operator behind its field; field
    kLongLine,      ///< the line was cut before here: this is its rest, read as a line of its own
    kZeroByte,      ///< the line holds a zero byte; what follows it is not read
    kWrongSection,  ///< the file ends here, refused; text: the word that stands for the section
    kUnreadable,    ///< not even the first line can be read; errno says why
    kReadError      ///< reading failed further on, errno says why: the lines until here count
};

/// What stands for the section that was expected where kWrongSection was met.
enum class ZoTraceConfigSection { kComponents, kData, kFilters };

struct ZoTraceConfigEvent {
    ZoTraceConfigEventKind kind;
    int line;                      ///< counted from 1; 0 for what no line stands for
    ZoTraceConfigSection section;  ///< what the reader expected on that line
    std::string_view text;
    const ZoTraceComponentInfo* component;
    const ZoTraceDataFieldInfo* field;
};

/// Is told of every event, in the order of the file; what an event points to is valid during the
/// call alone.
using ZoTraceConfigObserver = std::function<void(const ZoTraceConfigEvent&)>;

#endif
