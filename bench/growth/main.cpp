// growth --directory=DIR [--foreign-files=N] [--rollovers=N] [--start-ups=N] [--memory-runs=N]
// Shows how what the library takes grows with what it has to deal with; prints JSON.
#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>
#include <string_view>

#include "figures.h"
#include "growth.h"

namespace {

int ReadCount(std::string_view text) {
    int count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    Require(error == std::errc() && end == text.data() + text.size() && count > 0,
            std::string(text) + " is no count");
    return count;
}

GrowthOptions ReadOptions(int argc, char** argv) {
    GrowthOptions options;
    const std::map<std::string_view, int*> counts = {{"--foreign-files", &options.foreignFiles},
                                                     {"--rollovers", &options.rollovers},
                                                     {"--start-ups", &options.startUps},
                                                     {"--memory-runs", &options.memoryRuns}};
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        const std::string_view name = argument.substr(0, argument.find('='));
        const std::string_view value = argument.substr(std::min(name.size() + 1, argument.size()));
        if (name == "--directory") {
            options.directory = std::filesystem::absolute(value);
        } else {
            const auto count = counts.find(name);
            Require(count != counts.end(), "there is no option " + std::string(name));
            *count->second = ReadCount(value);
        }
    }
    Require(std::filesystem::is_directory(options.directory), "--directory names no directory");
    return options;
}

void Measure(const GrowthOptions& options) {
    // Printed whole, or not at all.
    const std::string rollover = MeasureRollover(options);
    const std::string startUp = MeasureStartUp(options);
    const std::string memory = MeasureMemory(options);
    std::cout << "{\"rollover\": " << rollover << ",\n\"start_up\": " << startUp
              << ",\n\"memory\": " << memory << "}\n";
}

}  // namespace

int main(int argc, char** argv) {
    try {
        Measure(ReadOptions(argc, argv));
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << "growth: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
