#ifndef ZOLOG_CHECK_FINDINGS_H
#define ZOLOG_CHECK_FINDINGS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <zoerrlog/trace/ZoTraceConfigEvent.h>

#include <zolog/check/vocabulary.h>

namespace zolog {

enum class Selection { kNone, kByName, kByOlderRule };

struct FilterFinding {
    unsigned int field;
    std::string fieldName;
    unsigned int filterOperator;  ///< as in ZoTraceDataFieldInfo
    std::string value;
    int line;
};

/// A sentence about a line of the file, or about the file as a whole (line 0).
struct Remark {
    int line;
    std::string text;
};

/// What the library's reader met in one trace configuration file: what the file selects, and what
/// in it is skipped or surprising. The texts are printable; the values of filters and the version
/// are as in the file.
class Findings {
public:
    /// The vocabulary is not copied.
    Findings(KnownComponents components, KnownFields fields);

    /// Takes in one event of the reader.
    void Add(const ZoTraceConfigEvent& event);
    /// Call it behind the last event: adds the warnings about what the file does not say.
    void Finish();

    /// Why the file could not be read at all, as errno has it; 0 when it could.
    int ReadError() const { return m_readError; }
    /// Why the library refuses the file, if it does; it then selects nothing.
    const std::optional<Remark>& Refusal() const { return m_refusal; }
    /// Empty when no line says a version.
    const std::string& Version() const { return m_version; }
    /// How the component or sub-component of that row of the vocabulary was selected.
    Selection SelectionOf(std::size_t row) const { return m_selections[row]; }
    /// Numbers of the traced fields, in the order of the line.
    const std::vector<unsigned int>& Fields() const { return m_traced; }
    const std::vector<FilterFinding>& Filters() const { return m_filters; }
    /// In the order of the file; those about the whole file come last.
    const std::vector<Remark>& Warnings() const { return m_warnings; }

private:
    void AddVersion(const ZoTraceConfigEvent& event);
    void Select(unsigned int id, Selection how);
    void AddField(const ZoTraceConfigEvent& event);
    void AddFilter(const ZoTraceConfigEvent& event);
    void WarnOfReplacement(const ZoTraceConfigEvent& event);
    void WarnOfSkippedFilter(const ZoTraceConfigEvent& event);
    void WarnOfLine(const ZoTraceConfigEvent& event);
    void Refuse(const ZoTraceConfigEvent& event);
    void Warn(int line, std::string text);
    bool IsTraced(unsigned int field) const;
    std::string UnknownComponent(std::string_view name) const;
    std::string UnknownField(std::string_view name) const;

    KnownComponents m_components;
    KnownFields m_knownFields;
    int m_readError = 0;
    std::optional<Remark> m_refusal;
    std::string m_version;
    bool m_current = false;  // a version line counts as 1.1
    std::vector<Selection> m_selections;
    std::vector<unsigned int> m_traced;
    std::vector<FilterFinding> m_filters;
    std::vector<Remark> m_warnings;
};

}  // namespace zolog

#endif
