// peak_memory QSETTINGS_PEER     prints the peak memory of each reader while it loads generated settings in a process
//                                of its own, in Google Benchmark's JSON format
// peak_memory --load READER FILE
// peak_memory --generate KEYS FILE

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "benchmarks/childprogram.h"
#include "benchmarks/generatedsettings.h"
#include "benchmarks/peers/readers.h"
#include "benchmarks/plainmaps.h"
#include "traderbase/base/config/configcollector.h"

namespace {

template <typename Reader>
void loadWith(const std::string& path) {
    Reader().load(path);
}

const std::map<std::string, std::function<void(const std::string&)>> kReaders = {
    {"nothing", [](const std::string&) {}},
    {"ours",
     [](const std::string& path) {
         const benchmarks::QuietStandardError quiet;
         ttservice::ConfigCollector::instance()->readConfig(path);
     }},
    {"plainMaps", [](const std::string& path) { benchmarks::plainSections(path); }},
    {"plainMapsAndLists",
     [](const std::string& path) {
         const auto sections = benchmarks::plainSections(path);
         benchmarks::plainLists(sections);
     }},
    {"simpleIni", loadWith<benchmarks::SimpleIniReader>},
    {"gKeyFile", loadWith<benchmarks::GKeyFileReader>},
    {"propertyTree", loadWith<benchmarks::PropertyTreeReader>},
    {"inih", loadWith<benchmarks::InihReader>},
};

nlohmann::json figure(const std::string& reader, int keys, const std::vector<std::string>& command) {
    const auto use = benchmarks::runChild(command);
    if (!use) throw std::runtime_error("could not run " + reader);
    return {{"run_name", reader + "/" + std::to_string(keys)}, {"aggregate_name", "median"}, {"peak", use->peakBytes}};
}

// This process must stay small: the system adds its memory to the peak of the child that it starts.
int measureAll(const std::string& self, const std::string& qsettingsPeer) {
    nlohmann::json figures = nlohmann::json::array();
    const benchmarks::TemporaryFile file{std::string()};
    for (const int keys : {500, 1000, 10000, 100000, 1000000}) {
        benchmarks::runChild({self, "--generate", std::to_string(keys), file.path()});
        for (const auto& [reader, load] : kReaders)
            figures.push_back(figure(reader, keys, {self, "--load", reader, file.path()}));
        figures.push_back(figure("qsettings", keys, {qsettingsPeer, "--peak", file.path()}));
    }
    std::cout << nlohmann::json{{"benchmarks", figures}}.dump(2) << '\n';
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv, argv + argc);
    if (argc == 2) return measureAll(arguments[0], arguments[1]);
    if (argc == 4 && arguments[1] == "--load" && kReaders.count(arguments[2]) != 0) {
        kReaders.at(arguments[2])(arguments[3]);
        return 0;
    }
    if (argc == 4 && arguments[1] == "--generate") {
        std::ofstream(arguments[3], std::ios::binary) << benchmarks::generatedText(std::stoi(arguments[2]));
        return 0;
    }
    return 2;
}
