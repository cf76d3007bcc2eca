// benchmark_results FOLDER MARKDOWN JSON
// Builds the table from the figures in a folder, prints it and writes it to the two files.

#include <exception>
#include <fstream>
#include <iostream>
#include <string>

#include "benchmarks/results/figures.h"
#include "benchmarks/results/rows.h"
#include "benchmarks/results/table.h"

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: benchmark_results FOLDER MARKDOWN JSON\n";
        return 2;
    }
    try {
        const benchmarks::Figures figures(argv[1]);
        const auto results = benchmarks::resultsOf(benchmarks::allGroups(), figures);
        const std::string text = benchmarks::asMarkdown(results, figures.machine());
        std::cout << text;
        std::ofstream(argv[2], std::ios::binary) << text;
        std::ofstream(argv[3], std::ios::binary) << benchmarks::asJson(results, figures.machine()).dump(2) << '\n';
    } catch (const std::exception& problem) {
        std::cerr << "benchmark_results: " << problem.what() << '\n';
        return 1;
    }
    return 0;
}
