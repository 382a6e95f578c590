#ifndef ZOLOG_CHECK_VISIBLE_TEXT_H
#define ZOLOG_CHECK_VISIBLE_TEXT_H

#include <string>
#include <string_view>

namespace zolog {

/// `text` with every control character as \xNN, so that a terminal only shows it. Bytes above 0x7F
/// stay, as parts of letters.
std::string Visible(std::string_view text);

/// The same in double quotes.
std::string Quoted(std::string_view text);

}  // namespace zolog

#endif
