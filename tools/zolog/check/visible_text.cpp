#include <zolog/check/visible_text.h>

namespace zolog {

namespace {

constexpr unsigned char kFirstPrintable = 0x20;
constexpr unsigned char kDelete = 0x7F;
constexpr char kHexDigits[] = "0123456789ABCDEF";

}  // namespace

std::string Visible(std::string_view text) {
    std::string visible;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte >= kFirstPrintable && byte != kDelete) {
            visible += character;
        } else {
            visible.append("\\x").append({kHexDigits[byte >> 4], kHexDigits[byte & 0xF]});
        }
    }
    return visible;
}

std::string Quoted(std::string_view text) {
    return '"' + Visible(text) + '"';
}

}  // namespace zolog
