#ifndef TESTS_TOOLS_ZOLOG_PROCESS_H
#define TESTS_TOOLS_ZOLOG_PROCESS_H

#include <string>
#include <vector>

#include "support/TemporaryDirectory.h"

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

using Arguments = std::vector<std::string>;

/// Runs zolog in `directory` with `input` on its standard input.
Outcome RunZolog(const zotest::TemporaryDirectory& directory, const Arguments& arguments,
                 const std::string& input = "");

/// The lines of all error logs in `directory`, ordered, from the source position on: what stands
/// before it differs from run to run. A line of another shape fails the test.
std::vector<std::string> ReadLog(const std::string& directory);

#endif
