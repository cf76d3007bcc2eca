#pragma once

#include <optional>
#include <string>
#include <vector>

// The rows of the table: which of our runs is compared with which peer, by which figure, and with what goal.

namespace benchmarks {

enum class Goal {
    None,         // ours : peer, for information
    AtMost,       // ours : peer
    TimesFaster,  // peer : ours, at least the bound
    TimesAsMany,  // ours : peer, at least the bound
    Under         // ours alone, in nanoseconds
};

struct Side {
    std::string label;
    std::string run;
    std::string field = "time";
};

struct Row {
    std::string what;
    Side ours;
    Side peer;  // an empty run if there is no peer
    Goal goal = Goal::None;
    double bound = 0;
};

struct Group {
    std::string title;
    std::vector<Row> rows;
};

std::vector<Group> allGroups();

}  // namespace benchmarks
