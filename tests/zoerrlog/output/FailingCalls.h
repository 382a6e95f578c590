#ifndef TESTS_ZOERRLOG_OUTPUT_FAILINGCALLS_H
#define TESTS_ZOERRLOG_OUTPUT_FAILINGCALLS_H

#include <vector>

/// The program's own file functions stand in for those of zoi18n: they hand every call on to the
/// library, but for the calls that a test chooses to fail.
namespace zotest {

enum class Call { Access, Open, Rename, Unlink };

/// What the calls from now on come to, one after the other: 0 for one that is handed on, otherwise
/// the error with which it fails and does nothing. Not while another thread makes calls.
void FailCalls(Call call, const std::vector<int>& errors);

/// Whether there are chosen calls that have not come yet.
bool FailuresArePending();

}  // namespace zotest

#endif
