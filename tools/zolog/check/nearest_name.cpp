#include <zolog/check/nearest_name.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace zolog {

namespace {

constexpr std::size_t kLettersPerMistake = 3;

// By hand, because names mean the same in every locale.
std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& letter : lower) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter - 'A' + 'a');
        }
    }
    return lower;
}

std::size_t EditDistance(std::string_view left, std::string_view right) {
    std::vector<std::size_t> twoBack;
    std::vector<std::size_t> back(right.size() + 1);
    std::vector<std::size_t> row(right.size() + 1);
    for (std::size_t j = 0; j <= right.size(); ++j) {
        row[j] = j;
    }
    for (std::size_t i = 1; i <= left.size(); ++i) {
        twoBack = back;
        back = row;
        row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const std::size_t replaced = back[j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1);
            row[j] = std::min({back[j] + 1, row[j - 1] + 1, replaced});
            if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
                row[j] = std::min(row[j], twoBack[j - 2] + 1);
            }
        }
    }
    return row.back();
}

}  // namespace

NearestName FindNearestName(std::string_view wrong, std::span<const std::string_view> names) {
    const std::string lowerWrong = LowerCase(wrong);
    NearestName nearest;
    std::size_t fewest = 0;
    for (const std::string_view name : names) {
        const auto [shorter, longer] = std::minmax({wrong.size(), name.size()});
        const std::size_t most = std::max<std::size_t>(1, shorter / kLettersPerMistake);
        // A line of the file may be one long word; its length alone rules it out.
        if (longer - shorter > most) {
            continue;
        }
        const std::size_t distance = EditDistance(lowerWrong, LowerCase(name));
        if (distance <= most && (nearest.name.empty() || distance < fewest)) {
            nearest = {name, distance == 0};
            fewest = distance;
        }
    }
    return nearest;
}

}  // namespace zolog
