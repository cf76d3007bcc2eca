#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "benchmarks/results/figures.h"
#include "benchmarks/results/rows.h"

// The rows with their figures, as a text for people and as JSON.

namespace benchmarks {

struct Result {
    Row row;
    double ours = 0;
    double peer = 0;   // 0 where ours stands alone
    double ratio = 0;  // as the goal counts it; 0 where ours stands alone
    bool reached = true;
    std::string allocations;  // of an answer, "ours / peer"; empty where they were not counted
};

struct ResultGroup {
    std::string title;
    std::vector<Result> results;
};

// Names a run that is missing by throwing.
std::vector<ResultGroup> resultsOf(const std::vector<Group>& groups, const Figures& figures);

std::string asMarkdown(const std::vector<ResultGroup>& groups, const std::string& machine);
nlohmann::json asJson(const std::vector<ResultGroup>& groups, const std::string& machine);

}  // namespace benchmarks
