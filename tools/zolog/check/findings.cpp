#include <zolog/check/findings.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <system_error>
#include <utility>

#include <zolog/check/filter_operator.h>
#include <zolog/check/nearest_name.h>
#include <zolog/check/visible_text.h>

namespace zolog {

namespace {

using Kind = ZoTraceConfigEventKind;

constexpr std::string_view kCurrentVersion = "1.1";
constexpr std::string_view kComponentsWord = "components";
constexpr std::string_view kDataWord = "data";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
// The reader drops a carriage return before a line feed, but not one at the end of the file.
constexpr std::string_view kBlanks = " \t\r";

template <typename Known>
std::string Unknown(const char* what, std::string_view wrong, std::span<const Known> vocabulary) {
    std::vector<std::string_view> names;
    for (const Known& known : vocabulary) {
        names.emplace_back(known.name);
    }
    std::string text = std::string("unknown ") + what + ' ' + Quoted(wrong);
    const auto [name, onlyCaseDiffers] = FindNearestName(wrong, names);
    if (!name.empty()) {
        text += " (did you mean " + Quoted(name) + '?';
        text += onlyCaseDiffers ? " names are case-sensitive)" : ")";
    }
    return text;
}

std::string ValueOf(const ZoTraceDataFieldInfo& field) {
    return field.filterValue != nullptr ? field.filterValue : "";
}

}  // namespace

Findings::Findings(KnownComponents components, KnownFields fields)
    : m_components(components), m_knownFields(fields), m_selections(components.size()) {
}

void Findings::Add(const ZoTraceConfigEvent& event) {
    switch (event.kind) {
        case Kind::kVersion:
        case Kind::kOtherVersion:
        case Kind::kNoVersion:
            return AddVersion(event);
        case Kind::kComponent:
            return Select(event.component->id, Selection::kByName);
        case Kind::kOlderFileRule:
            return Select(event.component->id, Selection::kByOlderRule);
        case Kind::kUnknownComponent:
            return Warn(event.line, UnknownComponent(event.text));
        case Kind::kField:
        case Kind::kRepeatedField:
            return AddField(event);
        case Kind::kUnknownField:
            return Warn(event.line, UnknownField(event.text));
        case Kind::kFilter:
            return AddFilter(event);
        case Kind::kReplacedFilter:
            return WarnOfReplacement(event);
        case Kind::kUnknownFilter:
        case Kind::kNoDelimiter:
        case Kind::kNoOperator:
            return WarnOfSkippedFilter(event);
        case Kind::kLongLine:
        case Kind::kZeroByte:
        case Kind::kReadError:
            return WarnOfLine(event);
        case Kind::kWrongSection:
            return Refuse(event);
        case Kind::kUnreadable:
            m_readError = errno;
            return;
    }
}

void Findings::Finish() {
    if (m_refusal) {
        return;
    }
    if (std::count(m_selections.begin(), m_selections.end(), Selection::kNone) ==
        static_cast<std::ptrdiff_t>(m_selections.size())) {
        Warn(0, "no component is selected; no line is traced");
    }
    if (m_traced.empty()) {
        Warn(0, "no field is traced");
    }
}

void Findings::AddVersion(const ZoTraceConfigEvent& event) {
    if (event.kind == Kind::kNoVersion) {
        Warn(event.line, "no line says version 1.1; the file counts as an older one");
        return;
    }
    const bool counts = event.kind == Kind::kVersion;
    if (counts || !m_current) {
        m_version = event.text;
    }
    m_current = m_current || counts;
    if (event.text != kCurrentVersion) {
        Warn(event.line, "the version is " + Quoted(event.text) + ", not \"1.1\"; it " +
                             (counts ? "counts as 1.1 all the same" : "does not count"));
    }
}

void Findings::Select(unsigned int id, Selection how) {
    for (std::size_t row = 0; row < m_components.size(); ++row) {
        const unsigned int known = m_components[row].id;
        const bool chosen =
            IsWholeComponent(id) ? ComponentOf(known) == ComponentOf(id) : known == id;
        if (chosen && m_selections[row] == Selection::kNone) {
            m_selections[row] = how;
        }
    }
}

void Findings::AddField(const ZoTraceConfigEvent& event) {
    if (event.kind == Kind::kField) {
        m_traced.push_back(event.field->id);
        return;
    }
    Warn(event.line,
         "the field " + Quoted(event.field->name) + " is named again, which changes nothing");
}

void Findings::AddFilter(const ZoTraceConfigEvent& event) {
    const ZoTraceDataFieldInfo& field = *event.field;
    const std::string value = ValueOf(field);
    std::erase_if(m_filters, [&field](const auto& earlier) { return earlier.field == field.id; });
    m_filters.push_back({field.id, field.name, field.filterOperator, value, event.line});

    if (value.empty()) {
        Warn(event.line, "the filter of " + Quoted(field.name) + " has an empty value");
    } else if (kBlanks.find(value.front()) != std::string_view::npos ||
               kBlanks.find(value.back()) != std::string_view::npos) {
        Warn(event.line, "blanks at an end of the filter's value are part of it: " + Quoted(value));
    }
    if (!IsTraced(field.id)) {
        Warn(event.line, "the filtered field " + Quoted(field.name) +
                             " is not traced: its setter is asked only if the caller sets it");
    }
}

void Findings::WarnOfReplacement(const ZoTraceConfigEvent& event) {
    const ZoTraceDataFieldInfo& field = *event.field;
    const auto earlier =
        std::find_if(m_filters.begin(), m_filters.end(),
                     [&field](const auto& filter) { return filter.field == field.id; });
    const std::string where =
        earlier != m_filters.end() ? " of line " + std::to_string(earlier->line) : "";
    Warn(event.line, "this filter replaces the earlier one" + where + ": " + field.name + ' ' +
                         OperatorOf(field.filterOperator).word + ' ' + Quoted(ValueOf(field)));
}

void Findings::WarnOfSkippedFilter(const ZoTraceConfigEvent& event) {
    std::string reason;
    if (event.kind == Kind::kNoDelimiter) {
        reason = "no blank between " + Quoted(event.field->name) + " and the operator in " +
                 Quoted(event.text);
    } else if (event.kind == Kind::kNoOperator) {
        reason = "no operator (==, !=, @@ or !@) behind " + Quoted(event.field->name);
    } else if (event.text == kComponentsWord || event.text == kDataWord) {
        reason = "a second " + Quoted(event.text) + " line is not read as such";
    } else {
        reason = UnknownField(event.text);
    }
    Warn(event.line, "filter skipped: " + reason);
}

void Findings::WarnOfLine(const ZoTraceConfigEvent& event) {
    if (event.kind == Kind::kLongLine) {
        Warn(event.line, "the line is cut at 8092 bytes; its rest is read as a line of its own");
    } else if (event.kind == Kind::kZeroByte) {
        Warn(event.line, "the line holds a zero byte; what follows it is not read");
    } else {
        Warn(event.line, "reading failed here (" + std::generic_category().message(errno) +
                             "); only the lines before count");
    }
}

void Findings::Refuse(const ZoTraceConfigEvent& event) {
    const std::string_view expected =
        event.section == ZoTraceConfigSection::kComponents ? kComponentsWord : kDataWord;
    std::string text = "expected " + Quoted(expected) + ", found " + Quoted(event.text);
    // Nobody sees it, neither in an editor nor in this text.
    text += event.text.starts_with(kByteOrderMark) ? " behind a byte order mark" : "";
    m_refusal = {event.line, std::move(text)};
}

void Findings::Warn(int line, std::string text) {
    m_warnings.push_back({line, std::move(text)});
}

bool Findings::IsTraced(unsigned int field) const {
    return std::find(m_traced.begin(), m_traced.end(), field) != m_traced.end();
}

std::string Findings::UnknownComponent(std::string_view name) const {
    std::string text = Unknown("component", name, m_components);
    return OnlyBuiltIn(m_components) ? text + " (no component library was found)" : text;
}

std::string Findings::UnknownField(std::string_view name) const {
    return Unknown("field", name, m_knownFields);
}

}  // namespace zolog
