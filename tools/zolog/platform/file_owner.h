#ifndef ZOLOG_PLATFORM_FILE_OWNER_H
#define ZOLOG_PLATFORM_FILE_OWNER_H

#include <cstdio>
#include <memory>

namespace zolog {

struct FileCloser {
    // Only for streams whose loss at closing does not matter: read ones, and those not written to.
    void operator()(std::FILE* stream) const { static_cast<void>(std::fclose(stream)); }
};

/// Owns an open stream, or nothing; whoever makes it looks at errno.
using FileOwner = std::unique_ptr<std::FILE, FileCloser>;

}  // namespace zolog

#endif
