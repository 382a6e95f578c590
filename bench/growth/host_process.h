#ifndef ZOERRLOG_BENCH_GROWTH_HOST_PROCESS_H
#define ZOERRLOG_BENCH_GROWTH_HOST_PROCESS_H

#include <filesystem>
#include <string>
#include <vector>

/// The two trees that a host is started in.
constexpr const char* kHostAlone = "alone";
constexpr const char* kHostWithComponents = "with_components";

/// Starts growth_host of `tree` with `arguments`, waits for its end and returns the numbers that it
/// gives; it writes into a directory in `directory`, which is gone afterwards. Throws
/// std::runtime_error when it fails.
std::vector<double> RunHost(const std::string& tree, const std::filesystem::path& directory,
                            const std::vector<std::string>& arguments);

#endif
