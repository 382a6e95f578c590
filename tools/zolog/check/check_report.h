#ifndef ZOLOG_CHECK_CHECK_REPORT_H
#define ZOLOG_CHECK_CHECK_REPORT_H

#include <iosfwd>
#include <string>

#include <zolog/check/vocabulary.h>

namespace zolog {

class Findings;
struct Remark;

/// Writes what a trace configuration selects.
void WriteSelection(std::ostream& stream, const Findings& findings, KnownComponents components,
                    KnownFields fields);

/// Writes one line: "FILE:LINE: kind: text", without the line number when there is none.
void WriteRemark(std::ostream& stream, const std::string& file, const char* kind,
                 const Remark& remark);

}  // namespace zolog

#endif
