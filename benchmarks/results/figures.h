#pragma once

#include <map>
#include <optional>
#include <string>

// The output of the benchmark programs: the medians of their repetitions.

namespace benchmarks {

class Figures {
public:
    // Reads every PROGRAM.json and PROGRAM-PART.json in a folder, all in Google Benchmark's JSON format.
    explicit Figures(const std::string& folder);

    // A figure of the run "PROGRAM/RUN", such as "switch/oursHot/500". The field is "time", in nanoseconds, or the name
    // of a counter. Returns nothing if the run or the counter is unknown.
    std::optional<double> find(const std::string& run, const std::string& field) const;

    // The processors and the date that the programs report.
    const std::string& machine() const { return machineText; }

private:
    std::map<std::string, std::map<std::string, double>> runs;
    std::string machineText;
};

}  // namespace benchmarks
