#ifndef ZOLOG_REPLAY_INPUT_READER_H
#define ZOLOG_REPLAY_INPUT_READER_H

#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace zolog {

/// A line of the input, without its line end and with a "?" for every zero byte. What it points to
/// lives as long as the Input.
struct InputLine {
    std::string_view text;
    const char* fileName;  ///< the base name, or "-" for standard input
    int number;            ///< within its file, from 1
};

/// All lines of all input files, held in memory.
class Input {
public:
    /// Reads every file in full ("-" is standard input); throws CommandError when one cannot be
    /// read.
    explicit Input(const std::vector<std::string>& files);
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    const std::vector<InputLine>& Lines() const { return m_lines; }

private:
    // In a deque nothing ever moves, so the lines may point into its elements.
    struct File {
        std::string baseName;
        std::string text;
    };
    void AddLines(const File& file);

    std::deque<File> m_files;
    std::vector<InputLine> m_lines;
};

}  // namespace zolog

#endif
