#include "tools/zolog_process.h"

#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>

namespace fs = std::filesystem;

Outcome RunZolog(const zotest::TemporaryDirectory& directory, const Arguments& arguments,
                 const std::string& input) {
    const auto quoted = [](const std::string& text) {
        return " '" + std::regex_replace(text, std::regex("'"), R"('\'')") + "'";
    };
    const zotest::TemporaryDirectory streams;
    std::string command = "cd" + quoted(directory.Path()) + " &&" + quoted(ZOLOG_PROGRAM);
    for (const std::string& argument : arguments) {
        command += quoted(argument);
    }
    command += " <" + quoted(streams.Write("in", input)) + " >" + quoted(streams.File("out")) +
               " 2>" + quoted(streams.File("err"));
    // The shell does the redirections; every word in it is quoted.
    const int status = std::system(command.c_str());  // NOLINT(cert-env33-c)
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, streams.Read("out"), streams.Read("err")};
}

std::vector<std::string> ReadLog(const std::string& directory) {
    static const std::regex shape(
        R"(\[\d+/\d+\]\[[A-Z][a-z]{2} [A-Z][a-z]{2} \d\d \d{4} \d\d:\d\d:\d\d\])"
        R"((\[[^\]]+:\d+\]\[(?:ERROR|WARNING|INFO)\]\[zo-login-0000[123]\] .*))");
    std::vector<std::string> lines;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        if (!entry.path().filename().string().starts_with("error")) {
            continue;
        }
        std::ifstream stream(entry.path(), std::ios::binary);
        for (std::string line; std::getline(stream, line);) {
            std::smatch match;
            EXPECT_TRUE(std::regex_match(line, match, shape)) << entry.path() << ": " << line;
            EXPECT_FALSE(stream.eof()) << entry.path() << " ends without a line feed";
            lines.push_back(match.str(1));
        }
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}
