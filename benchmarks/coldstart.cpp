// coldstart NAME PROGRAM ARGS... [-- NAME PROGRAM ARGS...]...
// Runs the programs in turn, many times, and prints the median time of each from start to end, in Google Benchmark's
// JSON format. The first run of each program does not count.

#include <cstdio>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "benchmarks/childprogram.h"
#include "benchmarks/median.h"

namespace {

constexpr int kRuns = 41;

struct Program {
    std::string name;
    std::vector<std::string> command;
    std::vector<double> seconds;
};

std::vector<Program> programsOf(int argc, char** argv) {
    std::vector<Program> programs;
    bool named = false;
    for (int i = 1; i < argc; ++i) {
        const std::string piece = argv[i];
        if (piece == "--") {
            named = false;
        } else if (!named) {
            programs.push_back({piece, {}, {}});
            named = true;
        } else {
            programs.back().command.push_back(piece);
        }
    }
    return programs;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<Program> programs = programsOf(argc, argv);
    for (int run = 0; run <= kRuns; ++run) {
        for (Program& program : programs) {
            const auto use = benchmarks::runChild(program.command);
            if (!use) {
                std::cerr << "coldstart: " << program.name << " did not run\n";
                return 1;
            }
            if (run > 0) program.seconds.push_back(use->seconds);
        }
    }
    nlohmann::json figures = nlohmann::json::array();
    for (const Program& program : programs) {
        figures.push_back({{"run_name", program.name + "/real_time"},
                           {"aggregate_name", "median"},
                           {"real_time", benchmarks::median(program.seconds) * 1e6},
                           {"time_unit", "us"}});
    }
    std::cout << nlohmann::json{{"benchmarks", figures}}.dump(2) << '\n';
    return 0;
}
