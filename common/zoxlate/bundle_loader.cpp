#include <zoxlate/bundle_loader.h>
#include <zoxlate/properties.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

namespace zoxlate {

namespace {

constexpr std::size_t kMaximumFileSize = std::size_t{16} << 20U;
constexpr std::size_t kReadSize = std::size_t{64} << 10U;

enum class FileResult { kRead, kAbsent, kFailedForNow };

struct CloseFile {
    // Nothing was written: there is no late error to lose.
    void operator()(std::FILE* file) const noexcept { static_cast<void>(std::fclose(file)); }
};

FileResult ReadContent(std::FILE& file, std::string& content) {
    content.clear();
    std::size_t received = 0;
    do {
        const std::size_t size = content.size();
        content.resize(size + kReadSize);
        received = std::fread(content.data() + size, 1, kReadSize, &file);
        content.resize(size + received);
    } while (received == kReadSize && content.size() <= kMaximumFileSize);
    if (std::ferror(&file) != 0) {
        return FileResult::kFailedForNow;
    }
    return content.size() <= kMaximumFileSize ? FileResult::kRead : FileResult::kAbsent;
}

FileResult ReadFile(const std::string& path, std::string& content) {
    // Looked at before it is opened: opening a pipe would wait for a writer.
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return FileResult::kAbsent;
    }
    // "e": a program that another thread starts meanwhile does not inherit the descriptor.
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rbe"));
    if (file == nullptr) {
        const bool passing =
            errno == EMFILE || errno == ENFILE || errno == ENOMEM || errno == EINTR;
        return passing ? FileResult::kFailedForNow : FileResult::kAbsent;
    }
    return ReadContent(*file, content);
}

// "_fr", "_fr_CA" for fr-CA, behind the empty one of the base file.
std::vector<std::string> FileSuffixes(std::string_view locale) {
    constexpr std::string_view separators = "_.@";
    std::string suffix(locale);
    std::replace(suffix.begin(), suffix.end(), '-', '_');
    std::vector<std::string> suffixes;
    while (!suffix.empty()) {
        suffixes.push_back('_' + suffix);
        const std::size_t separator = suffix.find_last_of(separators);
        suffix.resize(separator == std::string::npos ? 0 : separator);
        // An empty part ("en__POSIX") makes no step of its own.
        suffix.resize(suffix.find_last_not_of(separators) + 1);
    }
    suffixes.emplace_back();
    std::reverse(suffixes.begin(), suffixes.end());
    return suffixes;
}

}  // namespace

LoadedBundle LoadBundle(const std::string& directory, std::string_view name,
                        std::string_view locale) {
    const std::string stem = directory + '/' + std::string(name);
    LoadedBundle loaded;
    bool found = false;
    TextMap texts;
    std::string content;
    for (const std::string& suffix : FileSuffixes(locale)) {
        const FileResult result = ReadFile(stem + suffix + ".properties", content);
        if (result == FileResult::kRead) {
            found = true;
            ParseProperties(content, texts);
        } else if (result == FileResult::kFailedForNow) {
            loaded.final = false;
        }
    }
    if (found) {
        loaded.bundle = Bundle::Create(texts);
    }
    return loaded;
}

}  // namespace zoxlate
