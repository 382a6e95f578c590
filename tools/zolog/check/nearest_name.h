#ifndef ZOLOG_CHECK_NEAREST_NAME_H
#define ZOLOG_CHECK_NEAREST_NAME_H

#include <span>
#include <string_view>

namespace zolog {

struct NearestName {
    std::string_view name;  ///< one of those given; empty when none is near enough
    bool onlyCaseDiffers = false;
};

/// The name that somebody who wrote `wrong` most probably meant: the one with the fewest letters
/// left out, added, replaced or swapped with their neighbour, upper and lower case being the same;
/// the first of several. At most one letter in three may be wrong, and always one.
NearestName FindNearestName(std::string_view wrong, std::span<const std::string_view> names);

}  // namespace zolog

#endif
