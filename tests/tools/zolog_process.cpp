#include "zolog_process.h"

#include <stdlib.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace {

std::string Quoted(const std::string& text) {
    std::string quoted = "'";
    quoted.append(std::regex_replace(text, std::regex("'"), R"('\'')")).append("'");
    return quoted;
}

std::string Read(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

TempDirectory::TempDirectory() {
    std::string name = (fs::temp_directory_path() / "zolog-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw fs::filesystem_error("mkdtemp", name,
                                   std::error_code(errno, std::generic_category()));
    }
    m_path = name;
}

TempDirectory::~TempDirectory() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

fs::path TempDirectory::Write(const std::string& name, const std::string& text) const {
    std::ofstream(m_path / name, std::ios::binary) << text;
    return m_path / name;
}

std::vector<std::string> Outcome::Values(const std::string& name) const {
    std::vector<std::string> values;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(name + ": ")) {
            values.push_back(line.substr(name.size() + 2));
        }
    }
    return values;
}

Outcome RunZolog(const TempDirectory& directory, const std::vector<std::string>& arguments,
                 const std::string& input, const std::string& launcher) {
    const TempDirectory streams;
    const fs::path in = streams.Write("in", input);
    const fs::path out = streams.Path() / "out";
    const fs::path err = streams.Path() / "err";
    std::string command = "cd ";
    command.append(Quoted(directory.Path())).append(" && ").append(launcher);
    command.append(" ").append(Quoted(ZOLOG_PROGRAM));
    for (const std::string& argument : arguments) {
        command.append(" ").append(Quoted(argument));
    }
    command.append(" <").append(Quoted(in));
    command.append(" >").append(Quoted(out));
    command.append(" 2>").append(Quoted(err));
    // The shell does the redirections; every word in it is quoted.
    const int status = std::system(command.c_str());  // NOLINT(cert-env33-c)
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Read(out), Read(err)};
}

std::string RealInput() {
    const char* name = std::getenv("ZOLOG_REAL_INPUT");
    return name != nullptr && std::ifstream(name) ? name : "";
}

std::vector<LogLine> ReadLog(const fs::path& directory) {
    static const std::regex shape(
        R"(\[\d+/\d+\]\[[A-Z][a-z]{2} [A-Z][a-z]{2} \d\d \d{4} \d\d:\d\d:\d\d\])"
        R"(\[([^\]]+):(\d+)\](\[(?:ERROR|WARNING|INFO)\]\[zo-login-0000[123]\] .*))");
    std::vector<LogLine> lines;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        const std::string text = Read(entry.path());
        EXPECT_TRUE(text.empty() || text.ends_with('\n')) << entry.path();
        std::istringstream stream(text);
        std::smatch match;
        for (std::string line; std::getline(stream, line);) {
            if (std::regex_match(line, match, shape)) {
                lines.emplace_back(match.str(1), std::stoi(match.str(2)), match.str(3));
            } else {
                ADD_FAILURE() << entry.path() << " holds: " << line;
            }
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}
