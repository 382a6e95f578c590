#include <bench/lines/line_check.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string_view>

namespace bench {
namespace {

/// What a whole line looks like. In `begin`, '#' is any digit; lines are split after `last`.
struct Shape {
    std::string_view workload;
    std::string_view begin;
    std::string_view end;
    std::string_view last = "\n";
};

constexpr std::string_view kErrorEnd =
    "[zo-login-00001] Failed password for webmaster from 192.0.2.17 port 38926\n";

constexpr Shape kShapes[] = {
    {"error_line", "[#", kErrorEnd},
    {"error_line_limited", "[#", kErrorEnd},
    {"error_line_buffered", "[#", kErrorEnd},
    {"trace_line_bracketed", "[##/##/####][##:##:##.###][",
     "[CheckPassword][webmaster][192.0.2.17][failed][attempt 3 on port 22]\n"},
    {"trace_line_columns", "##/##/####        ##:##:##.###",
     "attempt 3 on port 22                                            \n"},
    {"trace_line_delimited", "##/##/####|##:##:##.###|",
     "|CheckPassword|webmaster|192.0.2.17|failed|attempt 3 on port 22\n"},
    {"trace_line_xml", "<TraceMessage>\n\t<Date>##/##/####</Date>\n",
     "</IPAddr>\n\t<AuthStatus>failed</AuthStatus>\n"
     "\t<Message>attempt 3 on port 22</Message>\n</TraceMessage>\n",
     "</TraceMessage>\n"},
    {"audit_line", "login of webmaster", " from 192.0.2.17 refused\n"},
};

bool Begins(std::string_view text, std::string_view begin) {
    return text.size() >= begin.size() &&
           std::equal(begin.begin(), begin.end(), text.begin(), [](char wanted, char found) {
               return wanted == found ||
                      (wanted == '#' && std::isdigit(static_cast<unsigned char>(found)) != 0);
           });
}

bool IsWhole(std::string_view line, const Shape& shape) {
    return line.size() >= shape.begin.size() + shape.end.size() && Begins(line, shape.begin) &&
           line.substr(line.size() - shape.end.size()) == shape.end;
}

void SkipHeadings(std::string_view& text, int headings) {
    for (int i = 0; i < headings; ++i) {
        text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
    }
}

/// Lines of a file differ in the digits of thread ids alone, so a line of another length than the
/// first is not whole: what follows a cut line makes one line of two.
Tally Count(std::string_view text, const Shape& shape) {
    constexpr std::size_t kSpread = 8;
    Tally tally;
    const std::size_t first = text.find(shape.last) + shape.last.size();
    while (!text.empty()) {
        const std::size_t found = text.find(shape.last);
        const std::size_t length =
            found == std::string_view::npos ? text.size() : found + shape.last.size();
        ++tally.lines;
        const bool alike = length <= first + kSpread && first <= length + kSpread;
        tally.torn += alike && IsWhole(text.substr(0, length), shape) ? 0 : 1;
        text.remove_prefix(length);
    }
    return tally;
}

}  // namespace

Tally CheckFile(const std::string& path, const Contender& contender, std::uint64_t calls) {
    std::ifstream file(path, std::ios::binary);
    const std::string content(std::istreambuf_iterator<char>(file), {});
    std::string_view text = content;
    SkipHeadings(text, contender.headings);
    const auto* known =
        std::find_if(std::begin(kShapes), std::end(kShapes),
                     [&](const Shape& shape) { return shape.workload == contender.workload; });
    const bool question = known == std::end(kShapes);
    Shape shape = question ? Shape{} : *known;
    if (!contender.begin.empty()) {
        shape.begin = contender.begin;
    }
    Tally tally = Count(text, shape);
    const std::uint64_t wanted = question ? 0 : calls;
    tally.lost = wanted - std::min(wanted, tally.lines);
    tally.torn += tally.lines - std::min(wanted, tally.lines);
    return tally;
}

void Ledger::Add(const Contender& contender, const Tally& tally) {
    Tally& sum = tallies[contender.workload + '/' + contender.name];
    sum.lines += tally.lines;
    sum.lost += tally.lost;
    sum.torn += tally.torn;
}

bool Ledger::Report() const {
    bool whole = true;
    for (const auto& [name, tally] : tallies) {
        if (tally.lost + tally.torn > 0) {
            std::cerr << "bench: " << name << " lost " << tally.lost << " lines and tore "
                      << tally.torn << ", of " << tally.lines << " in its files\n";
            whole = false;
        }
    }
    return whole;
}

void Ledger::Write(const std::string& file) const {
    std::ofstream out(file);
    const char* separator = "{\n";
    for (const auto& [name, tally] : tallies) {
        out << separator << '"' << name << R"(":{"lines":)" << tally.lines << R"(,"lost":)"
            << tally.lost << R"(,"torn":)" << tally.torn << '}';
        separator = ",\n";
    }
    out << "\n}\n";
    Require(static_cast<bool>(out.flush()), "writing " + file);
}

}  // namespace bench
