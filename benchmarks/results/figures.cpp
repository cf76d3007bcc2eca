// Reads the figures of the benchmark programs.
// Entry points: Figures(folder), find(), machine().
// Owns: the choice of the time that counts, and the names of runs.
// Not covered by tests: ./bench shows what it reads.

#include "benchmarks/results/figures.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <regex>
#include <stdexcept>

namespace benchmarks {

namespace {

using nlohmann::json;

// Google Benchmark writes NaN and infinities in a form that is not valid JSON.
std::string jsonText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    static const std::regex noNumber(": -?(NaN|Infinity)");
    return std::regex_replace(bytes, noNumber, ": null");
}

double nanosecondsPer(const std::string& unit) {
    if (unit == "ns") return 1;
    if (unit == "us") return 1e3;
    if (unit == "ms") return 1e6;
    return 1e9;
}

// Removes a part such as "/real_time" or "/iterations:1" from a run's name; returns whether it was there.
bool takeOut(std::string& run, const std::string& part) {
    const std::size_t start = run.find(part);
    if (start == std::string::npos) return false;
    run.erase(start, run.find('/', start + 1) - start);
    return true;
}

// "name/500/iterations:1/real_time" becomes "name/500"; the number of threads stays.
std::string shortName(const json& entry) {
    std::string run = entry.at("run_name");
    for (const std::string part : {"/real_time", "/manual_time", "/iterations:"})
        takeOut(run, part);
    return run;
}

// The time is processor time unless the run's name says otherwise; every other number is a counter.
std::map<std::string, double> fieldsOf(const json& entry) {
    std::map<std::string, double> fields;
    for (const auto& [name, value] : entry.items()) {
        if (value.is_number()) fields[name] = value.get<double>();
    }
    std::string run = entry.at("run_name");
    const bool usesRealTime = takeOut(run, "/real_time") || takeOut(run, "/manual_time");
    const auto time = fields.find(usesRealTime ? "real_time" : "cpu_time");
    if (time != fields.end()) fields["time"] = time->second * nanosecondsPer(entry.value("time_unit", "ns"));
    return fields;
}

}  // namespace

Figures::Figures(const std::string& folder) {
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
        if (file.path().extension() != ".json") continue;
        // "load-500.json" holds some of the runs of the program "load".
        const std::string name = file.path().stem().string();
        const std::string program = name.substr(0, name.find('-'));
        const json all = json::parse(jsonText(file.path()));
        for (const json& entry : all.at("benchmarks")) {
            if (entry.value("error_occurred", false)) {
                throw std::runtime_error(entry.value("name", "") + ": " + entry.value("error_message", ""));
            }
            if (entry.value("aggregate_name", "") != "median") continue;
            runs[program + "/" + shortName(entry)] = fieldsOf(entry);
        }
        if (all.contains("context") && machineText.empty()) {
            const json& context = all.at("context");
            machineText = fmt::format("{} processors at {} MHz, {}", context.at("num_cpus").get<int>(),
                                      context.at("mhz_per_cpu").get<int>(), context.at("date").get<std::string>());
        }
    }
}

std::optional<double> Figures::find(const std::string& run, const std::string& field) const {
    const auto found = runs.find(run);
    if (found == runs.end()) return std::nullopt;
    const auto value = found->second.find(field);
    if (value == found->second.end()) return std::nullopt;
    return value->second;
}

}  // namespace benchmarks
