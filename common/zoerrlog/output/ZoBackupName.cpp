#include <zoerrlog/output/ZoBackupName.h>

#include <algorithm>
#include <limits>
#include <tuple>

#include <zoerrlog/message/ZoDateText.h>

namespace zoerrlog::output {
namespace {

constexpr std::string_view kSeparators = "\\/";
constexpr std::string_view kDatePattern = "_00000000_000000";

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::size_t StemLength(std::string_view name) {
    return std::min(name.rfind('.'), name.size());
}

bool LooksLikeDate(std::string_view text) {
    return text.size() == kDatePattern.size() &&
           std::equal(text.begin(), text.end(), kDatePattern.begin(), [](char c, char expected) {
               return expected == '_' ? c == '_' : IsDigit(c);
           });
}

// What stands between the date and the first dot: nothing, or "_" and digits.
bool LooksLikeNumber(std::string_view text) {
    return text.empty() ||
           (text.front() == '_' && std::all_of(text.begin() + 1, text.end(), IsDigit));
}

// A number too large to be one of ours counts as the largest.
unsigned long ReadNumber(std::string_view text) {
    constexpr unsigned long kLargest = std::numeric_limits<unsigned long>::max();
    unsigned long number = 0;
    for (const char c : text.substr(std::min<std::size_t>(1, text.size()))) {
        const auto digit = static_cast<unsigned long>(c - '0');
        number = number > (kLargest - digit) / 10 ? kLargest : number * 10 + digit;
    }
    return number;
}

}  // namespace

std::optional<LogFileName> SplitLogFileName(std::string_view fileName) {
    const std::size_t separator = fileName.find_last_of(kSeparators);
    if (separator == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view baseName = fileName.substr(separator + 1);
    const std::size_t stemLength = separator + 1 + StemLength(baseName);
    return LogFileName{fileName.substr(0, separator), baseName, fileName.substr(0, stemLength),
                       fileName.substr(stemLength)};
}

bool IsOlder(const Backup& left, const Backup& right) {
    return std::tie(left.date, left.number, left.name) <
           std::tie(right.date, right.number, right.name);
}

std::optional<Backup> ParseBackupName(std::string_view foundName, std::string_view baseName) {
    const std::string_view stem = baseName.substr(0, StemLength(baseName));
    const std::string_view extension = baseName.substr(stem.size());
    if (foundName.size() < baseName.size() + kDateLength ||
        foundName.substr(0, stem.size()) != stem ||
        foundName.substr(StemLength(foundName)) != extension) {
        return std::nullopt;
    }
    const std::string_view date = foundName.substr(stem.size(), kDateLength);
    const std::string_view rest = foundName.substr(stem.size() + kDateLength);
    const std::string_view number = rest.substr(0, rest.find('.'));
    if (!LooksLikeDate(date) || !LooksLikeNumber(number)) {
        return std::nullopt;
    }
    return Backup{std::string(foundName), std::string(date), ReadNumber(number)};
}

std::string MakeDate(const std::tm& localTime) {
    using message::WriteDigits;
    std::string date(kDatePattern);
    char* next = WriteDigits(localTime.tm_year + 1900, 4, date.data() + 1);
    next = WriteDigits(localTime.tm_mon + 1, 2, next);
    next = WriteDigits(localTime.tm_mday, 2, next);
    next = WriteDigits(localTime.tm_hour, 2, next + 1);
    next = WriteDigits(localTime.tm_min, 2, next);
    WriteDigits(localTime.tm_sec, 2, next);
    return date;
}

std::string MakeBackupName(const LogFileName& log, std::string_view date, unsigned long number) {
    std::string name(log.stem);
    name.append(date);
    if (number != 0) {
        name.append(number < 10 ? "_0" : "_").append(std::to_string(number));
    }
    return name.append(log.extension);
}

}  // namespace zoerrlog::output
