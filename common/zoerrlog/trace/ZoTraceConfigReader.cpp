#include <zoerrlog/trace/ZoTraceConfigReader.h>

#include <algorithm>

#include <zoerrlog/base/ZoFile.h>
#include <zoerrlog/trace/ZoFilterOperator.h>
#include <zoerrlog/trace/ZoTraceData.h>

using namespace zoerrlog::trace;

namespace {

constexpr int kReadOnly = 3;
constexpr int kLongestLine = 8092;
constexpr std::string_view kDelimiters = ":, \t\n";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kCurrentVersion = "1.1";

// Takes the next word off the front of `text`; empty when there is none. The delimiter that ends
// the word stays.
std::string_view TakeWord(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(kDelimiters), text.size()));
    const std::string_view word = text.substr(0, text.find_first_of(kDelimiters));
    text.remove_prefix(word.size());
    return word;
}

std::string_view WithoutLineEnd(std::string_view line) {
    if (line.ends_with('\n')) {
        line.remove_suffix(1);
        // Some editors end a line in both.
        if (line.ends_with('\r')) {
            line.remove_suffix(1);
        }
    }
    return line;
}

}  // namespace

ZoTraceConfigReader::ZoTraceConfigReader(CZoTraceData& target,
                                         const ZoTraceConfigObserver* observer)
    : m_target(target), m_observer(observer) {
}

bool ZoTraceConfigReader::Read(const char* fileName) {
    CZoFile file;
    if (!file.OpenFile(fileName, kReadOnly)) {
        Tell(Kind::kUnreadable);
        return false;
    }
    if (!ReadLines(file)) {
        return false;
    }
    m_line = 0;
    if (!m_current) {
        Tell(Kind::kNoVersion);
        ApplyOlderFileRules();
    }
    return true;
}

bool ZoTraceConfigReader::ReadLines(CZoFile& file) {
    char buffer[kLongestLine + 1];
    bool startsLine = true;
    for (;;) {
        const int result = file.ReadLine(buffer, kLongestLine);
        if (result == 0) {
            return true;
        }
        if (result < 0) {
            // A directory opens like a file and fails here.
            Tell(m_line == 0 ? Kind::kUnreadable : Kind::kReadError);
            return m_line != 0;
        }
        m_line += startsLine ? 1 : 0;
        const bool ended = buffer[result - 1] == '\n';
        const std::string_view line(buffer, static_cast<std::size_t>(ended ? result : result - 1));
        if (!startsLine && !WithoutLineEnd(line).empty()) {
            Tell(Kind::kLongLine);
        }
        startsLine = ended;
        if (!TakeLine(line)) {
            return false;
        }
    }
}

bool ZoTraceConfigReader::TakeLine(std::string_view line) {
    line = WithoutLineEnd(line);
    if (const std::size_t zero = line.find('\0'); zero != std::string_view::npos) {
        Tell(Kind::kZeroByte);
        line = line.substr(0, zero);
    }
    const std::string_view word = TakeWord(line);
    if (word.empty() || word.starts_with('#')) {
        return true;
    }
    if (word == "version") {
        TakeVersion(line);
        return true;
    }
    return TakeSection(word, line);
}

void ZoTraceConfigReader::TakeVersion(std::string_view rest) {
    const std::string_view version = TakeWord(rest);
    const bool current = version.find(kCurrentVersion) != std::string_view::npos;
    m_current = m_current || current;
    Tell(current ? Kind::kVersion : Kind::kOtherVersion, version);
}

bool ZoTraceConfigReader::TakeSection(std::string_view word, std::string_view rest) {
    switch (m_expected) {
        case Section::kComponents:
            if (word != "components") {
                break;
            }
            TakeComponents(rest);
            m_expected = Section::kData;
            return true;
        case Section::kData:
            if (word != "data") {
                break;
            }
            TakeFields(rest);
            m_expected = Section::kFilters;
            return true;
        case Section::kFilters:
            TakeFilter(word, rest);
            return true;
    }
    Tell(Kind::kWrongSection, word);
    return false;
}

void ZoTraceConfigReader::TakeComponents(std::string_view rest) {
    for (std::string_view name = TakeWord(rest); !name.empty(); name = TakeWord(rest)) {
        if (const ZoTraceComponentInfo* const info = m_target.GetComponentInfo(name)) {
            m_target.MarkComponentTraced(info->id);
            Tell(Kind::kComponent, *info);
        } else {
            Tell(Kind::kUnknownComponent, name);
        }
    }
}

void ZoTraceConfigReader::TakeFields(std::string_view rest) {
    for (std::string_view name = TakeWord(rest); !name.empty(); name = TakeWord(rest)) {
        if (ZoTraceDataFieldInfo* const field = m_target.GetDataFieldInfo(name)) {
            Tell(m_target.MarkFieldTraced(*field) ? Kind::kField : Kind::kRepeatedField, *field);
        } else {
            Tell(Kind::kUnknownField, name);
        }
    }
}

void ZoTraceConfigReader::TakeFilter(std::string_view word, std::string_view rest) {
    ZoTraceDataFieldInfo* const field = m_target.GetDataFieldInfo(word);
    if (field == nullptr) {
        SkipFilter(word);
        return;
    }
    // One delimiter of any kind ends the name; only blanks may stand between it and the operator.
    rest.remove_prefix(std::min<std::size_t>(1, rest.size()));
    rest.remove_prefix(std::min(rest.find_first_not_of(kBlanks), rest.size()));
    const FilterOperator filterOperator = OperatorAtStart(rest);
    if (filterOperator == kNoFilter) {
        Tell(Kind::kNoOperator, *field);
        return;
    }
    if (field->filtered) {
        Tell(Kind::kReplacedFilter, *field);
    }
    m_target.SetFilter(*field, filterOperator, rest.substr(kOperatorLength));
    Tell(Kind::kFilter, *field);
}

// Finds out, for the observer alone, whether a known field stands before an operator.
void ZoTraceConfigReader::SkipFilter(std::string_view word) {
    for (std::size_t end = 1; end + kOperatorLength <= word.size(); ++end) {
        if (OperatorAtStart(word.substr(end)) == kNoFilter) {
            continue;
        }
        if (const ZoTraceDataFieldInfo* const field =
                m_target.GetDataFieldInfo(word.substr(0, end))) {
            Tell(Kind::kNoDelimiter, *field, word);
            return;
        }
    }
    Tell(Kind::kUnknownFilter, word);
}

void ZoTraceConfigReader::ApplyOlderFileRules() {
    if (IsSelected("Login_Logout/Authentication")) {
        AddByOlderRule("Login_Logout/Send_Response");
        AddByOlderRule("Login_Logout/Receive_Request");
    }
    if (IsSelected("IsAuthorized")) {
        AddByOlderRule("IsAuthorized/Send_Response");
        AddByOlderRule("IsAuthorized/Receive_Request");
    }
}

bool ZoTraceConfigReader::IsSelected(std::string_view name) const {
    const ZoTraceComponentInfo* const info = m_target.GetComponentInfo(name);
    return info != nullptr && info->selected;
}

void ZoTraceConfigReader::AddByOlderRule(std::string_view name) {
    const ZoTraceComponentInfo* const info = m_target.GetComponentInfo(name);
    if (info == nullptr || info->selected) {
        return;
    }
    m_target.MarkComponentTraced(info->id);
    Tell(Kind::kOlderFileRule, *info);
}

void ZoTraceConfigReader::Tell(Kind kind, std::string_view text) const {
    TellEvent({kind, m_line, m_expected, text, nullptr, nullptr});
}

void ZoTraceConfigReader::Tell(Kind kind, const ZoTraceComponentInfo& component) const {
    TellEvent({kind, m_line, m_expected, {}, &component, nullptr});
}

void ZoTraceConfigReader::Tell(Kind kind, const ZoTraceDataFieldInfo& field,
                               std::string_view text) const {
    TellEvent({kind, m_line, m_expected, text, nullptr, &field});
}

void ZoTraceConfigReader::TellEvent(const ZoTraceConfigEvent& event) const {
    if (m_observer != nullptr && *m_observer) {
        (*m_observer)(event);
    }
}
