#include <zolog/replay/input_reader.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include <zolog/command.h>
#include <zolog/platform/file_owner.h>

namespace zolog {

namespace {

constexpr char kStandardInput[] = "-";
constexpr std::size_t kReadSize = 1 << 18;

[[noreturn]] void FailToRead(const std::string& file, int error) {
    const std::string subject = file == kStandardInput ? "standard input" : "'" + file + "'";
    throw CommandError("cannot read " + subject + ": " + std::generic_category().message(error));
}

std::string ReadAll(std::FILE* stream, const std::string& file) {
    std::string text;
    std::size_t length = 0;
    std::size_t got = 0;
    do {
        text.resize(length + kReadSize);
        errno = 0;
        got = std::fread(text.data() + length, 1, kReadSize, stream);
        length += got;
    } while (got == kReadSize);
    if (std::ferror(stream) != 0) {
        FailToRead(file, errno);
    }
    text.resize(length);
    return text;
}

std::string ReadFile(const std::string& file) {
    if (file == kStandardInput) {
        return ReadAll(stdin, file);
    }
    const FileOwner stream(std::fopen(file.c_str(), "rb"));
    if (stream == nullptr) {
        FailToRead(file, errno);
    }
    return ReadAll(stream.get(), file);
}

}  // namespace

Input::Input(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
        File& added = m_files.emplace_back();
        added.baseName = std::filesystem::path(file).filename().string();
        added.text = ReadFile(file);
        // A zero byte would cut an audit line and a trace field, and split a name into two
        // arguments of a message.
        std::replace(added.text.begin(), added.text.end(), '\0', '?');
        AddLines(added);
    }
}

void Input::AddLines(const File& file) {
    std::string_view rest = file.text;
    for (int number = 1; !rest.empty(); ++number) {
        const std::size_t end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        if (end != std::string_view::npos && line.ends_with('\r')) {
            line.remove_suffix(1);
        }
        m_lines.push_back({line, file.baseName.c_str(), number});
    }
}

}  // namespace zolog
