#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "benchmarks/results/figures.h"
#include "benchmarks/results/rows.h"

// The rows with their figures, as Markdown and as JSON.

namespace benchmarks {

struct Result {
    Row row;
    double ours = 0;
    double peer = 0;   // 0 if there is no peer
    double ratio = 0;  // in the direction of the goal; 0 if there is no peer
    bool reached = true;
    std::string allocations;  // per answer, "ours / peer"; empty if not counted
};

struct ResultGroup {
    std::string title;
    std::vector<Result> results;
};

// Throws an exception that names the run if one is missing.
std::vector<ResultGroup> resultsOf(const std::vector<Group>& groups, const Figures& figures);

std::string asMarkdown(const std::vector<ResultGroup>& groups, const std::string& machine);
nlohmann::json asJson(const std::vector<ResultGroup>& groups, const std::string& machine);

}  // namespace benchmarks
