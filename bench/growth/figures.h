#ifndef ZOERRLOG_BENCH_GROWTH_FIGURES_H
#define ZOERRLOG_BENCH_GROWTH_FIGURES_H

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

/// Throws std::runtime_error with the text `what` unless it holds.
void Require(bool holds, std::string_view what);

/// Both need at least one figure.
double Median(std::vector<double> figures);
double Worst(const std::vector<double>& figures);

double Microseconds(std::chrono::steady_clock::duration time);

/// One record of the output. Names need no escapes.
class JsonRecord {
public:
    JsonRecord& Add(std::string_view name, int value);
    /// With one decimal.
    JsonRecord& Add(std::string_view name, double value);
    std::string Text() const { return '{' + m_members + '}'; }

private:
    JsonRecord& AddText(std::string_view name, std::string_view value);

    std::string m_members;
};

std::string JsonArray(const std::vector<JsonRecord>& records);

#endif
