// toolwork TTCONFIG DESK      prints the time and memory that the tool's subcommands take for files of 100,000 keys,
//                             each in a process of its own, and those of a process that only loads the same file, in
//                             Google Benchmark's JSON format. The mixed file starts with the settings file DESK.
// toolwork --load FILE        only loads a file
// toolwork --nothing          does nothing
// toolwork --write DESK DIR   writes the files
//
// All programs run in turn, several times; the first, warm-up round does not count. Times are processor times of whole
// processes; figures are medians.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <nlohmann/json.hpp>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "benchmarks/childprogram.h"
#include "benchmarks/generatedsettings.h"
#include "benchmarks/median.h"
#include "benchmarks/toolfiles.h"
#include "traderbase/base/config/configcollector.h"

namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 9;

void write(const fs::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
}

void writePair(const fs::path& folder, const std::string& kind, const benchmarks::TwoTexts& texts) {
    write(folder / (kind + ".ini"), texts.before);
    write(folder / (kind + ".later.ini"), texts.after);
}

void writeFiles(const std::string& desk, const fs::path& folder) {
    writePair(folder, "switches", benchmarks::switchTexts(10));
    writePair(folder, "limits", benchmarks::limitTexts(10));
    writePair(folder, "bonds", benchmarks::bondTexts(10));
    writePair(folder, "mixed", benchmarks::mixedTexts(desk, 10));
    write(folder / "limits.all.ini", benchmarks::limitTexts(1).after);
    write(folder / "bonds.all.ini", benchmarks::bondTexts(1).after);
}

// A measured program, such as "check/limits".
struct Run {
    std::string name;
    std::vector<std::string> command;
    std::vector<double> processorSeconds = {};
    std::vector<double> peaks = {};
};

class Folder {
public:
    Folder() : path(fs::temp_directory_path() / ("toolwork-" + std::to_string(std::random_device()()))) {
        fs::create_directory(path);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder() {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }

    std::string file(const std::string& name) const { return (path / name).string(); }

    const fs::path path;
};

std::vector<Run> runsOf(const std::string& self, const std::string& tool, const Folder& folder) {
    std::vector<Run> runs = {{"nothing", {self, "--nothing"}}, {"version", {tool, "--version"}}};
    for (const std::string kind : {"switches", "limits", "bonds", "mixed"}) {
        const std::string file = folder.file(kind + ".ini");
        runs.push_back({"load/" + kind, {self, "--load", file}});
        runs.push_back({"check/" + kind, {tool, "check", file}});
        runs.push_back({"diff/" + kind, {tool, "diff", file, folder.file(kind + ".later.ini")}});
        runs.push_back({"report/" + kind, {tool, "report", "--settings", file, "-o", folder.file("report.html")}});
    }
    const std::string switches = folder.file("switches.ini");
    for (const std::string format : {"json", "sarif"})
        runs.push_back({"check-" + format + "/switches", {tool, "check", switches, "--format", format}});
    for (const std::string kind : {"limits", "bonds"}) {
        runs.push_back({"report-against/" + kind,
                        {tool, "report", "--settings", folder.file(kind + ".later.ini"), "--against",
                         folder.file(kind + ".ini"), "-o", folder.file("report.html")}});
        runs.push_back(
            {"diff-all/" + kind, {tool, "diff", folder.file(kind + ".ini"), folder.file(kind + ".all.ini")}});
    }
    return runs;
}

// check with findings and diff with differences exit with 1, which is a success here.
void measure(Run& run, bool warmsUp) {
    const auto use = benchmarks::runChild(run.command, 1);
    if (!use) throw std::runtime_error(run.name + " did not run");
    if (warmsUp) return;
    run.processorSeconds.push_back(use->processorSeconds);
    run.peaks.push_back(use->peakBytes);
}

nlohmann::json figure(const Run& run, double barePeak) {
    return {{"run_name", run.name},
            {"aggregate_name", "median"},
            {"cpu_time", benchmarks::median(run.processorSeconds) * 1e6},
            {"time_unit", "us"},
            {"memory", benchmarks::median(run.peaks) - barePeak}};
}

// This process must stay small: the system adds its memory to the peak of the child that it starts.
int measureAll(const std::string& self, const std::string& tool, const std::string& desk) {
    const Folder folder;
    if (!benchmarks::runChild({self, "--write", desk, folder.path.string()})) {
        throw std::runtime_error("the files were not written");
    }
    std::vector<Run> runs = runsOf(self, tool, folder);
    for (int round = 0; round <= kRounds; ++round) {
        for (Run& run : runs)
            measure(run, round == 0);
    }
    nlohmann::json figures = nlohmann::json::array();
    for (const Run& run : runs) {
        const bool isTool = run.command.front() == tool;
        figures.push_back(figure(run, benchmarks::median(runs[isTool ? 1 : 0].peaks)));
    }
    for (const std::string kind : {"switches", "limits", "bonds", "mixed"}) {
        const auto size = static_cast<double>(fs::file_size(folder.file(kind + ".ini")));
        const auto later = static_cast<double>(fs::file_size(folder.file(kind + ".later.ini")));
        figures.push_back({{"run_name", "file/" + kind}, {"aggregate_name", "median"}, {"bytes", size}});
        figures.push_back({{"run_name", "files/" + kind}, {"aggregate_name", "median"}, {"bytes", size + later}});
    }
    std::cout << nlohmann::json{{"benchmarks", figures}}.dump(2) << '\n';
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    const std::string task = argc > 1 ? arguments[1] : "";
    if (argc == 3 && task == "--load") {
        const benchmarks::QuietStandardError quiet;
        ttservice::ConfigCollector::instance()->readConfig(arguments[2]);
        return 0;
    }
    if (argc == 2 && task == "--nothing") return 0;
    try {
        if (argc == 4 && task == "--write") {
            writeFiles(arguments[2], arguments[3]);
            return 0;
        }
        if (argc == 3) return measureAll(arguments[0], arguments[1], arguments[2]);
    } catch (const std::exception& problem) {
        std::cerr << "toolwork: " << problem.what() << '\n';
        return 1;
    }
    std::cerr << "usage: toolwork TTCONFIG DESK\n";
    return 2;
}
