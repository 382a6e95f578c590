#include <zoerrlog/jni/ZoPlaceholders.h>

namespace zoerrlog::jni {

std::string FillPlaceholders(std::string_view pattern, std::span<const std::string> arguments) {
    constexpr std::size_t kMarkSize = 2;
    std::string text;
    while (!pattern.empty()) {
        const std::size_t percent = std::min(pattern.find('%'), pattern.size());
        text.append(pattern.substr(0, percent));
        pattern.remove_prefix(percent);
        if (pattern.starts_with("%s")) {
            if (!arguments.empty()) {
                text.append(arguments.front());
                arguments = arguments.subspan(1);
            }
            pattern.remove_prefix(kMarkSize);
        } else if (!pattern.empty()) {
            text.push_back('%');
            pattern.remove_prefix(pattern.starts_with("%%") ? kMarkSize : 1);
        }
    }
    return text;
}

}  // namespace zoerrlog::jni
