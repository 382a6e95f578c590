#ifndef ZOERRLOG_MESSAGE_ZOERRLOGMESSAGE_H
#define ZOERRLOG_MESSAGE_ZOERRLOGMESSAGE_H

#include <cstdarg>
#include <cstddef>
#include <ctime>
#include <string_view>

#include <zoerrlog/base/ZoByteString.h>
#include <zoerrlog/base/ZoExport.h>
#include <zoerrlog/message/ZoArgList.h>

/// The record in which a log line is built before a logger hands it to its outputs.
///
/// A line takes three steps: a prolog (FormatLogProlog), a body (one of the Format operations),
/// and CZoLogger::LogErrMsg with the record. CleanUpMessage or a new prolog starts the next line.
///
/// A message identifier is an unsigned 32-bit number: component number 1 to 27 in bits 24 to 31,
/// severity in bits 14 and 15 (1 information, 2 warning, 3 error), message number in bits 0 to 13.
///
/// A record owns its text. A pointer to the text stays valid until the text changes or the record
/// is destroyed. A record is used by one thread at a time, and neither copied nor assigned. Every
/// operation that makes the text longer may throw std::bad_alloc, and nothing else.
class ZOERRLOG_EXPORT CZoErrLogMessage {
public:
    /// Takes the choice between local time and UTC from the default logger, which is constructed
    /// if this is its first use.
    CZoErrLogMessage();
    /// Makes that choice itself: local time if true, UTC if false. Leaves the default logger alone.
    explicit CZoErrLogMessage(bool useLocalTime);
    virtual ~CZoErrLogMessage();
    CZoErrLogMessage(const CZoErrLogMessage&) = delete;
    CZoErrLogMessage& operator=(const CZoErrLogMessage&) = delete;

    /// Empties the text and sets the message type to 0; arguments, severity and message
    /// identifier stay. Returns true.
    bool CleanUpMessage();

    /// Starts a line: replaces the text by "[pid/tid][date][file]" or, with a `line` above 0,
    /// "[pid/tid][date][file:line]". `file` is what follows the last backslash of `sourceFile`,
    /// null counting as empty. `messageType` is kept for the host. Returns true.
    bool FormatLogProlog(const char* sourceFile, int line, int messageType);

    /// The text, terminated by a zero byte.
    const char* GetBuffer();
    /// The same pointer as GetBuffer; the record keeps the text.
    const char* ReleaseBuffer();
    /// Bytes of text, without the terminator.
    int GetBufferLen();
    /// The same as GetBufferLen.
    int GetStringLen();
    /// Accepts a text obtained from a record and does nothing: the text belongs to the record.
    /// Asynchronous callbacks receive this function as their release function.
    static void FreeBuffer(char* text);

    /// "INFO", "WARN" or "ERROR" for the severity of the last message formatted with a non-zero
    /// identifier by PreformatMessage, FormatMessageA, FormatMessageForTrace or
    /// FormatLogMessageForTrace; otherwise "UNKNOWN". A static text.
    const char* GetMsgSeverity();

    /// The record's insertion arguments; the host fills them before a catalogue operation.
    CpaArgList& GetArgList();

    // Catalogue messages: the text comes from the message catalogue of the component that owns
    // the identifier, found through the default logger, and is filled with the argument list. An
    // identifier of 0 repeats the last one. These operations never fail: a missing component,
    // entry or catalogue text shows as a fixed text or as the key itself. Texts are cut at 4095
    // bytes.

    /// Writes the text of message `id` in `locale` into `dst`, at most `dstSize` bytes with the
    /// terminator. Returns the message key, never null; it belongs to the library or to the
    /// component, and is valid while the component is loaded.
    const char* PreformatMessage(unsigned int id, const char* locale, char* dst, size_t dstSize);

    /// Appends "[severity][key] text" and a line feed, in the administrator's locale. Returns the
    /// record's whole text.
    const char* FormatMessageA(unsigned int id);

    /// Replaces the record's text by "[key] text", in the locale "en", and returns it.
    const char* FormatMessageForTrace(unsigned int id);

    // Messages without a catalogue: the component's entry for `id` is the text. Each returns
    // false, with the record's text unchanged, when the component has no such entry.

    /// Appends "[severity] text" and a line feed; each "%s" of the entry in turn takes one of the
    /// `argCount` texts in `args`. Without arguments (`args` null or `argCount` below 1) the entry
    /// is written as it stands. A null text counts as empty.
    bool FormatLogMessage(int id, char** args, int argCount);

    /// Appends "[severity] text" and a line feed; the entry is a printf pattern for the arguments.
    /// Texts are cut at 4095 bytes.
    bool FormatLogMessageVA(int id, va_list args);
    bool FormatLogMessage(int id, ...);

    /// Appends " text", the entry being a printf pattern, cut at 4095 bytes; no severity, no line
    /// feed. Sets the record's severity to that of `id`, also when it then returns false.
    bool FormatLogMessageForTrace(int id, ...);

    // Trace lines: a row of field values in one of four layouts. A line takes BeginTraceFormat, any
    // number of fields, EndTraceFormat; each appends to the text. Values are written unchanged.
    //
    //   0  bracketed: "[value]" for each field, then a line feed
    //   1  columns: values padded with blanks or cut to a width, two blanks between them, line feed
    //   2  delimited: values with a separator between them, then a line feed
    //   3  XML: an opening element, one element a field on a line of its own, a closing element

    /// Starts a line in layout `format` and stores the choice between local time and UTC. `tag` is
    /// the separator of layout 2 (null is an empty one) or the element name of layout 3, which must
    /// not be null; the record keeps the pointer until the next BeginTraceFormat.
    void BeginTraceFormat(int format, bool useLocalTime, const char* tag);
    /// Appends a field in layout 0, 2 or 3; nothing in any other. `name` is read in layout 3 alone.
    /// Neither may be null where it is read.
    void FormatTraceField(const char* value, const char* name);
    /// Appends a column of `width` (0 or more) bytes, whatever the layout. `value` is not null.
    void FormatTraceField(const char* value, int width);
    /// Ends the line: the closing element in layout 3, a line feed in any other.
    void EndTraceFormat();

    /// A printf-style text of up to 4095 bytes, longer ones cut, in a block that the caller owns
    /// and gives back with FreeFormattedMessage. Null when `format` is null or empty.
    ZOERRLOG_PRINTF(1, 2)
    static const char* FormatTraceMessage(const char* format, ...);
    /// Frees a block of FormatTraceMessage; nothing for null.
    static void FreeFormattedMessage(const char* text);

    /// Replaces the text by a printf-style text of any length, for the audit log; neither a prolog
    /// nor a line feed is added. False, with the text unchanged, when `format` is null or empty. A
    /// text that cannot be formatted is empty.
    ZOERRLOG_PRINTF(2, 3)
    bool FormatAuditMessage(const char* format, ...);
    /// Replaces the text by `text`, which must not be the record's own; null changes nothing.
    void SetFormattedMessage(const char* text);

    // Each of these writes a text with its terminator into `buf` of `len` bytes and returns true,
    // or returns false and writes nothing when a pointer is null or `len` is below the minimum.

    /// The process id in decimal; at least 10 bytes.
    static bool GetPid(char* buf, int len);
    /// The calling thread's id in decimal; at least 15 bytes.
    static bool GetTid(char* buf, int len);
    /// The long date of `t`, such as "Mon Nov 16 2026 14:56:38", in English; at least 25 bytes.
    /// Weekday (0 to 6) and month (0 to 11) of `t` must be in range.
    static bool GetDateTime(const std::tm* t, char* buf, int len);
    /// The current time, local or UTC; at least 25 bytes. `form` 0 gives "11/16/2026", 1 gives
    /// "14:56:38", 2 adds "." and the milliseconds without leading zeros, any other the long date.
    static bool GetTime(int form, char* buf, bool localTime, int len);

    /// What follows the last backslash of `path`, or all of it. Points into `path`.
    static const char* PathnameFindFilePart(const char* path);

private:
    friend class CZoTraceData;

    void TakeMessageId(unsigned int id);
    void AppendPattern(const char* pattern, va_list args);

    ZoByteString m_text;
    int m_iMessageType;
    int m_iTraceFormat;
    bool m_bUseLocalTime;
    const char* m_pszTraceTag;
    bool m_bFirstField;
    int m_iSeverity;
    CpaArgList m_argList;
    unsigned int m_dwMessageId;
};

#endif
