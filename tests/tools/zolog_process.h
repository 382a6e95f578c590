#ifndef TESTS_TOOLS_ZOLOG_PROCESS_H
#define TESTS_TOOLS_ZOLOG_PROCESS_H

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

/// A new, empty directory, removed with its contents at the end.
class TempDirectory {
public:
    TempDirectory();
    ~TempDirectory();
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    const std::filesystem::path& Path() const { return m_path; }
    std::filesystem::path Write(const std::string& name, const std::string& text) const;

private:
    std::filesystem::path m_path;
};

struct Outcome {
    int status;
    std::string out;
    std::string err;
    /// What the summary says behind each "name: "; empty without such a line.
    std::vector<std::string> Values(const std::string& name) const;
};

/// Runs zolog in `directory` with `input` on its standard input. `launcher` is put in front of the
/// command, for the shell to read.
Outcome RunZolog(const TempDirectory& directory, const std::vector<std::string>& arguments,
                 const std::string& input = "", const std::string& launcher = "");

/// A line of an error log without what differs from run to run: source file, line number in it,
/// and "[severity][key] text".
using LogLine = std::tuple<std::string, int, std::string>;

/// The real log that the environment names for the tests, or empty.
std::string RealInput();

/// The lines of all files in `directory`, ordered; a line of another shape fails the test.
std::vector<LogLine> ReadLog(const std::filesystem::path& directory);

#endif
