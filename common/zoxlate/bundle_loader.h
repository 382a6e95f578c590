#ifndef ZOXLATE_BUNDLE_LOADER_H
#define ZOXLATE_BUNDLE_LOADER_H

#include <zoxlate/bundle.h>

#include <string>
#include <string_view>

namespace zoxlate {

struct LoadedBundle {
    Bundle::Owner bundle;  // null when none of the files can be used
    bool final = true;     // false: a file was left out for a reason that will pass
};

// Reads the files of a bundle, from the one without a locale to the one of the whole locale.
LoadedBundle LoadBundle(const std::string& directory, std::string_view name,
                        std::string_view locale);

}  // namespace zoxlate

#endif
