#include "figures.h"

#include <algorithm>
#include <iomanip>
#include <sstream>
#include <stdexcept>

void Require(bool holds, std::string_view what) {
    if (!holds) {
        throw std::runtime_error(std::string(what));
    }
}

double Median(std::vector<double> figures) {
    std::sort(figures.begin(), figures.end());
    const std::size_t upper = figures.size() / 2;
    return figures.size() % 2 == 1 ? figures.at(upper)
                                   : (figures.at(upper - 1) + figures.at(upper)) / 2;
}

double Worst(const std::vector<double>& figures) {
    return *std::max_element(figures.begin(), figures.end());
}

double Microseconds(std::chrono::steady_clock::duration time) {
    return std::chrono::duration<double, std::micro>(time).count();
}

JsonRecord& JsonRecord::Add(std::string_view name, int value) {
    return AddText(name, std::to_string(value));
}

JsonRecord& JsonRecord::Add(std::string_view name, double value) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(1) << value;
    return AddText(name, text.str());
}

JsonRecord& JsonRecord::AddText(std::string_view name, std::string_view value) {
    m_members.append(m_members.empty() ? "\"" : ", \"").append(name).append("\": ").append(value);
    return *this;
}

std::string JsonArray(const std::vector<JsonRecord>& records) {
    std::string text = "[";
    for (const JsonRecord& record : records) {
        text.append(text.size() == 1 ? "\n  " : ",\n  ").append(record.Text());
    }
    return text + "\n]";
}
