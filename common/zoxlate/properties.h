#ifndef ZOXLATE_PROPERTIES_H
#define ZOXLATE_PROPERTIES_H

#include <string>
#include <string_view>
#include <unordered_map>

namespace zoxlate {

using TextMap = std::unordered_map<std::string, std::string>;

// Adds the definitions of a Java property file in UTF-8 to texts; a later one replaces an earlier
// one. Any bytes are accepted: what is no valid escape is taken as it stands.
void ParseProperties(std::string_view content, TextMap& texts);

}  // namespace zoxlate

#endif
