#ifndef ZOERRLOG_PLATFORM_DIRECTORYSEARCH_H
#define ZOERRLOG_PLATFORM_DIRECTORYSEARCH_H

#include <string>
#include <string_view>
#include <vector>

namespace zoerrlog::platform {

/// The names in `directory` that match `prefix`*`suffix`, in the order of the directory, leaving
/// out what is itself a directory. A backslash in `directory` separates as a slash does. Empty when
/// nothing matches or the directory cannot be read.
std::vector<std::string> FindFiles(const std::string& directory, std::string_view prefix,
                                   std::string_view suffix);

}  // namespace zoerrlog::platform

#endif
