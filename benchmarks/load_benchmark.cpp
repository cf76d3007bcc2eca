// What loading a settings file costs, beside a raw scan of its lines that fills the same two maps.

#include <benchmark/benchmark.h>

#include <charconv>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "benchmarks/generatedsettings.h"
#include "traderbase/base/config/configcollector.h"

namespace {

using Lists = std::map<std::string, std::vector<int>, std::less<>>;

std::string wholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(static_cast<std::size_t>(file.tellg()), '\0');
    file.seekg(0);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

std::vector<int> numbers(std::string_view value) {
    std::vector<int> ids;
    const char* end = value.data() + value.size();
    for (const char* at = value.data(); at < end; ++at) {
        int id = 0;
        at = std::from_chars(at, end, id).ptr;
        ids.push_back(id);
    }
    return ids;
}

void scanLinesAndFillMaps(benchmark::State& state) {
    const benchmarks::GeneratedSettings settings(static_cast<int>(state.range(0)));
    Lists table;
    for (auto _ : state) {
        const std::string bytes = wholeFile(settings.path());
        std::map<std::string, std::vector<int>> lists;
        std::string_view rest = bytes;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find('\n'), rest.size() - 1);
            const std::string_view line = rest.substr(0, end);
            rest.remove_prefix(end + 1);
            const std::size_t equal = line.find('=');
            if (equal == std::string_view::npos) continue;
            lists.emplace(line.substr(0, equal), numbers(line.substr(equal + 1)));
        }
        for (auto& [key, ids] : lists)
            table[key] = std::move(ids);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void load(benchmark::State& state) {
    const benchmarks::QuietStandardError quiet;
    const benchmarks::GeneratedSettings settings(static_cast<int>(state.range(0)));
    const auto store = ttservice::ConfigCollector::instance();
    for (auto _ : state)
        store->readConfig(settings.path());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

}  // namespace

BENCHMARK(scanLinesAndFillMaps)->Arg(500)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(load)->Arg(500)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
