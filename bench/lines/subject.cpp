#include <bench/lines/subject.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace bench {

std::string RolloverWorkload(int backups) {
    return "rollover_" + std::to_string(backups);
}

bool IsRollover(const Contender& contender) {
    return contender.workload.rfind("rollover_", 0) == 0;
}

Contenders AllContenders() {
    Contenders contenders;
    AddBare(contenders);
    AddZoerrlog(contenders);
#ifdef ZOERRLOG_BENCH_SPDLOG
    AddSpdlog(contenders);
#endif
#ifdef ZOERRLOG_BENCH_GLOG
    AddGlog(contenders);
#endif
#ifdef ZOERRLOG_BENCH_LOG4CPLUS
    AddLog4cplus(contenders);
#endif
#ifdef ZOERRLOG_BENCH_LOG4CXX
    AddLog4cxx(contenders);
#endif
#ifdef ZOERRLOG_BENCH_BOOST_LOG
    AddBoostLog(contenders);
#endif
    std::stable_sort(
        contenders.begin(), contenders.end(),
        [](const Contender& a, const Contender& b) { return a.workload < b.workload; });
    return contenders;
}

void Require(bool holds, const std::string& what) {
    if (!holds) {
        std::cerr << "bench: does not work: " << what << '\n';
        std::_Exit(EXIT_FAILURE);
    }
}

}  // namespace bench
