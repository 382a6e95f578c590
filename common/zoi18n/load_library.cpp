#include <dlfcn.h>
#include <zoi18n/zoi18n.h>

#include <array>
#include <climits>
#include <cstdio>
#include <string_view>

namespace {

using PathBuffer = std::array<char, PATH_MAX>;

void* Load(std::string_view directory, const char* name) noexcept {
    PathBuffer path;
    const int length = std::snprintf(path.data(), path.size(), "%.*slib%s.so",
                                     static_cast<int>(directory.size()), directory.data(), name);
    if (length < 0 || static_cast<std::size_t>(length) >= path.size()) {
        return nullptr;
    }
    return ::dlopen(path.data(), RTLD_NOW | RTLD_LOCAL);
}

// With its final slash; empty when the loader knows this library by a bare name.
std::string_view OwnDirectory() noexcept {
    // A local function: the address of an exported one may be that of a stub in the program.
    Dl_info info{};
    if (::dladdr(reinterpret_cast<void*>(&OwnDirectory), &info) == 0 || info.dli_fname == nullptr) {
        return {};
    }
    const std::string_view file = info.dli_fname;
    const std::size_t slash = file.rfind('/');
    return slash == std::string_view::npos ? std::string_view() : file.substr(0, slash + 1);
}

}  // namespace

void* ZoLoadLibrary(const char* name) {
    if (name == nullptr || *name == '\0' ||
        std::string_view(name).find_first_of("/\\") != std::string_view::npos) {
        return nullptr;
    }
    if (void* library = Load({}, name)) {
        return library;
    }
    const std::string_view directory = OwnDirectory();
    return directory.empty() ? nullptr : Load(directory, name);
}
