#include <zolog/check/check_report.h>

#include <cstddef>
#include <ostream>
#include <string_view>

#include <zolog/check/filter_operator.h>
#include <zolog/check/findings.h>
#include <zolog/check/visible_text.h>

namespace zolog {

namespace {

constexpr char kIndent[] = "  ";
constexpr char kNone[] = "  none\n";
constexpr int kBlanksBetweenColumns = 2;

void WriteSelectedComponents(std::ostream& stream, const Findings& findings,
                             KnownComponents components) {
    stream << "components:\n";
    bool any = false;
    for (std::size_t row = 0; row < components.size(); ++row) {
        const Selection selection = findings.SelectionOf(row);
        if (selection == Selection::kNone) {
            continue;
        }
        any = true;
        stream << kIndent << IdText(components[row].id) << ' ' << components[row].name
               << (selection == Selection::kByOlderRule ? " (added by a rule for older files)" : "")
               << '\n';
    }
    stream << (any ? "" : kNone);
}

void WriteTracedFields(std::ostream& stream, const Findings& findings, KnownFields fields) {
    stream << "fields:\n" << (findings.Fields().empty() ? kNone : "");
    int lineWidth = 0;
    for (const unsigned int number : findings.Fields()) {
        const KNOWNDATAFIELDINFO& field = fields[number];
        stream << kIndent << field.name << ' ' << field.width << '\n';
        lineWidth += field.width + (lineWidth != 0 ? kBlanksBetweenColumns : 0);
    }
    stream << "line width in columns: " << lineWidth << '\n';
}

void WriteFilters(std::ostream& stream, const Findings& findings) {
    stream << "filters:\n" << (findings.Filters().empty() ? kNone : "");
    for (const FilterFinding& filter : findings.Filters()) {
        const FilterOperator filterOperator = OperatorOf(filter.filterOperator);
        const std::string value = Quoted(filter.value);
        stream << kIndent << filter.fieldName << ' ' << filterOperator.word << ' ' << value << " ("
               << filterOperator.meaning << " this text)\n";
    }
}

}  // namespace

void WriteSelection(std::ostream& stream, const Findings& findings, KnownComponents components,
                    KnownFields fields) {
    const std::string& version = findings.Version();
    stream << "version: " << (version.empty() ? "none" : Visible(version)) << '\n';
    WriteSelectedComponents(stream, findings, components);
    WriteTracedFields(stream, findings, fields);
    WriteFilters(stream, findings);
}

void WriteRemark(std::ostream& stream, const std::string& file, const char* kind,
                 const Remark& remark) {
    stream << Visible(file) << ':';
    if (remark.line != 0) {
        stream << remark.line << ':';
    }
    stream << ' ' << kind << ": " << remark.text << '\n';
}

}  // namespace zolog
