// The table of results.
// Entry points: resultsOf(), asMarkdown(), asJson().
// Owns: the meaning of goals, and the format of figures.
// Not covered by tests: ./bench shows the result.

#include "benchmarks/results/table.h"

#include <fmt/format.h>

#include <stdexcept>

namespace benchmarks {

namespace {

double figure(const Figures& figures, const Side& side) {
    const auto value = figures.find(side.run, side.field);
    if (!value) throw std::runtime_error(fmt::format("no figure \"{}\" of {}", side.field, side.run));
    // Google Benchmark reports this counter in seconds.
    return side.field == "time/key" ? *value * 1e9 : *value;
}

bool isReached(const Row& row, const Result& result) {
    switch (row.goal) {
        case Goal::None:
            return true;
        case Goal::AtMost:
            return result.ratio <= row.bound;
        case Goal::TimesFaster:
        case Goal::TimesAsMany:
            return result.ratio >= row.bound;
        case Goal::Under:
            return result.ours < row.bound;
    }
    return false;
}

std::string allocationsOf(const Figures& figures, const Row& row) {
    const auto ours = figures.find(row.ours.run, "allocations");
    if (!ours) return {};
    const auto peer = figures.find(row.peer.run, "allocations");
    return peer ? fmt::format("{:.0f} / {:.0f}", *ours, *peer) : fmt::format("{:.0f}", *ours);
}

Result resultOf(const Row& row, const Figures& figures) {
    Result result{row, figure(figures, row.ours), 0, 0, true, allocationsOf(figures, row)};
    if (!row.peer.run.empty()) {
        result.peer = figure(figures, row.peer);
        result.ratio = row.goal == Goal::TimesFaster ? result.peer / result.ours : result.ours / result.peer;
    }
    result.reached = isReached(row, result);
    return result;
}

std::string scaled(double value, const std::vector<const char*>& units, double step) {
    std::size_t unit = 0;
    while (value >= step && unit + 1 < units.size()) {
        value /= step;
        ++unit;
    }
    return fmt::format("{:.{}f} {}", value, value < 10 ? 2 : value < 100 ? 1 : 0, units[unit]);
}

std::string written(double value, const std::string& field) {
    if (field == "items_per_second" || field == "answers/s") return scaled(value, {"/s", "k/s", "M/s"}, 1000);
    if (field == "bytes_per_second") return scaled(value, {"B/s", "kB/s", "MB/s"}, 1000);
    if (field == "peak" || field == "memory" || field == "bytes") return scaled(value, {"B", "KiB", "MiB"}, 1024);
    return scaled(value, {"ns", "µs", "ms", "s"}, 1000);
}

std::string written(double value, const Side& side) {
    return fmt::format("{}{}{}", side.label, side.label.empty() ? "" : ": ", written(value, side.field));
}

std::string goalText(const Row& row) {
    switch (row.goal) {
        case Goal::None:
            break;
        case Goal::AtMost:
            return fmt::format("at most {}", row.bound);
        case Goal::TimesFaster:
            return fmt::format("{} times faster", row.bound);
        case Goal::TimesAsMany:
            return fmt::format("{} times as many", row.bound);
        case Goal::Under:
            return "under " + written(row.bound, "wait");
    }
    return {};
}

std::string line(const Result& result) {
    const Row& row = result.row;
    const bool alone = row.peer.run.empty();
    return fmt::format("| {} | {} | {} | {} | {} | {} | {} |\n", row.what, written(result.ours, row.ours),
                       alone ? "" : written(result.peer, row.peer), alone ? "" : fmt::format("{:.2f}", result.ratio),
                       goalText(row),
                       row.goal == Goal::None ? ""
                       : result.reached       ? "reached"
                                              : "**not reached**",
                       result.allocations);
}

}  // namespace

std::vector<ResultGroup> resultsOf(const std::vector<Group>& groups, const Figures& figures) {
    std::vector<ResultGroup> all;
    for (const Group& group : groups) {
        ResultGroup made{group.title, {}};
        for (const Row& row : group.rows)
            made.results.push_back(resultOf(row, figures));
        all.push_back(std::move(made));
    }
    return all;
}

std::string asMarkdown(const std::vector<ResultGroup>& groups, const std::string& machine) {
    std::size_t goals = 0;
    std::size_t reached = 0;
    std::string rows;
    for (const ResultGroup& group : groups) {
        rows += fmt::format("| **{}** | | | | | | |\n", group.title);
        for (const Result& result : group.results) {
            rows += line(result);
            if (result.row.goal == Goal::None) continue;
            ++goals;
            reached += result.reached ? 1 : 0;
        }
    }
    return fmt::format(
               "# Results of the benchmarks\n\n"
               "Printed by `./bench` ({}). Medians, of one run unless names were given; a ratio is\n"
               "ours by the peer's, and the peer's by ours where the goal is to be faster. Only the ratios mean "
               "anything\n"
               "on another machine. {} of {} goals are reached.\n\n"
               "| What | Ours | Peer | Ratio | Goal | | Allocations, ours / peer |\n"
               "|---|---|---|---|---|---|---|\n",
               machine, reached, goals) +
           rows;
}

nlohmann::json asJson(const std::vector<ResultGroup>& groups, const std::string& machine) {
    nlohmann::json rows = nlohmann::json::array();
    for (const ResultGroup& group : groups) {
        for (const Result& result : group.results) {
            const Row& row = result.row;
            nlohmann::json entry{{"group", group.title},
                                 {"what", row.what},
                                 {"ours", {{"run", row.ours.run}, {"field", row.ours.field}, {"value", result.ours}}}};
            if (!row.peer.run.empty()) {
                entry["peer"] = {{"label", row.peer.label},
                                 {"run", row.peer.run},
                                 {"field", row.peer.field},
                                 {"value", result.peer}};
                entry["ratio"] = result.ratio;
            }
            if (row.goal != Goal::None) {
                entry["goal"] = goalText(row);
                entry["reached"] = result.reached;
            }
            if (!result.allocations.empty()) entry["allocations"] = result.allocations;
            rows.push_back(std::move(entry));
        }
    }
    return {{"machine", machine}, {"rows", rows}};
}

}  // namespace benchmarks
