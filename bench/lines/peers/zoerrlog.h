#ifndef ZOERRLOG_BENCH_LINES_PEERS_ZOERRLOG_H
#define ZOERRLOG_BENCH_LINES_PEERS_ZOERRLOG_H

#include <functional>
#include <string>

#include <bench/lines/subject.h>

namespace bench {

/// The bytes of one line as this library writes it, learned by writing one to a path.
using SampleLine = std::function<std::string(const std::string& path)>;
SampleLine SampleLines(const std::string& workload);

}  // namespace bench

#endif
