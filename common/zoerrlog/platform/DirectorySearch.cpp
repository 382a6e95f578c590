#include <zoerrlog/platform/DirectorySearch.h>

#include <dirent.h>

#include <algorithm>
#include <memory>

namespace zoerrlog::platform {
namespace {

struct CloseDirectory {
    void operator()(DIR* directory) const noexcept { closedir(directory); }
};
using Directory = std::unique_ptr<DIR, CloseDirectory>;

bool Matches(std::string_view name, std::string_view prefix, std::string_view suffix) {
    return name.size() >= prefix.size() + suffix.size() &&
           name.substr(0, prefix.size()) == prefix &&
           name.substr(name.size() - suffix.size()) == suffix;
}

}  // namespace

std::vector<std::string> FindFiles(const std::string& directory, std::string_view prefix,
                                   std::string_view suffix) {
    std::string path = directory;
    std::replace(path.begin(), path.end(), '\\', '/');
    std::vector<std::string> names;
    const Directory open(opendir(path.empty() ? "/" : path.c_str()));
    if (open == nullptr) {
        return names;
    }
    while (const dirent* const entry = readdir(open.get())) {
        if (entry->d_type != DT_DIR && Matches(entry->d_name, prefix, suffix)) {
            names.emplace_back(entry->d_name);
        }
    }
    return names;
}

}  // namespace zoerrlog::platform
