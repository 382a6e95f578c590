#ifndef ZOERRLOG_TRACE_ZOTRACECONFIGREADER_H
#define ZOERRLOG_TRACE_ZOTRACECONFIGREADER_H

#include <string_view>

#include <zoerrlog/trace/ZoTraceConfigEvent.h>

class CZoFile;
class CZoTraceData;

/// Reads a trace configuration file into a configuration, and tells an observer what it meets.
///
/// The file consists of lines of words, separated by colons, commas, blanks and tabs. Lines without
/// a word, and those whose first word begins with "#", say nothing. A line "version ..." may stand
/// anywhere. Of the others, the first must name components ("components ..."), the second data
/// fields ("data ..."), and each further one is a filter: a field, one of the four operators, and a
/// value that reaches to the end of the line. What is not known is skipped.
class ZoTraceConfigReader {
public:
    /// `observer` may be null. Both must outlive the reader.
    ZoTraceConfigReader(CZoTraceData& target, const ZoTraceConfigObserver* observer);

    /// False when the file cannot be read, or its first two sections are not those two; what was
    /// read until then has been taken over.
    bool Read(const char* fileName);

private:
    using Kind = ZoTraceConfigEventKind;
    using Section = ZoTraceConfigSection;

    bool ReadLines(CZoFile& file);
    bool TakeLine(std::string_view line);
    void TakeVersion(std::string_view rest);
    bool TakeSection(std::string_view word, std::string_view rest);
    void TakeComponents(std::string_view rest);
    void TakeFields(std::string_view rest);
    void TakeFilter(std::string_view word, std::string_view rest);
    void SkipFilter(std::string_view word);
    void ApplyOlderFileRules();
    void AddByOlderRule(std::string_view name);
    bool IsSelected(std::string_view name) const;

    void Tell(Kind kind, std::string_view text = {}) const;
    void Tell(Kind kind, const ZoTraceComponentInfo& component) const;
    void Tell(Kind kind, const ZoTraceDataFieldInfo& field, std::string_view text = {}) const;
    void TellEvent(const ZoTraceConfigEvent& event) const;

    CZoTraceData& m_target;
    const ZoTraceConfigObserver* m_observer;
    Section m_expected = Section::kComponents;
    int m_line = 0;
    bool m_current = false;  // a version line said 1.1
};

#endif
