#pragma once

#include <map>
#include <optional>
#include <string>

// What the benchmark programs have printed: the medians of their repetitions.

namespace benchmarks {

class Figures {
public:
    // Reads every PROGRAM.json and PROGRAM-PART.json of a folder, each in the form of Google Benchmark's own.
    explicit Figures(const std::string& folder);

    // A figure of the run "PROGRAM/RUN", such as "switch/oursHot/500": "time" in nanoseconds or the name of a counter.
    // Nothing when the run or the counter is unknown.
    std::optional<double> find(const std::string& run, const std::string& field) const;

    // The processors and the date that the programs name.
    const std::string& machine() const { return machineText; }

private:
    std::map<std::string, std::map<std::string, double>> runs;
    std::string machineText;
};

}  // namespace benchmarks
