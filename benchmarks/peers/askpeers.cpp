// The cost of a platform switch in other settings readers: looking up the key and reading its list.

#include <benchmark/benchmark.h>

#include <fstream>
#include <string>
#include <vector>

#include "benchmarks/generatedsettings.h"
#include "benchmarks/measuring.h"
#include "benchmarks/peers/readers.h"
#include "benchmarks/switchlists.h"

namespace {

using benchmarks::Asked;

template <Asked kAsked, typename Reader>
void ask(benchmark::State& state) {
    const std::vector<std::string>& keys = benchmarks::switchKeys();
    Reader reader;
    reader.load(benchmarks::switchFile(static_cast<int>(state.range(0)), keys).path());
    if (!reader.lists(keys.front(), benchmarks::kAskedPlatform)) {
        state.SkipWithError("the reader does not know what it has read");
        return;
    }
    benchmarks::askInTurn(state, benchmarks::askedCount(kAsked), [&](std::size_t turn) {
        return reader.lists(keys[benchmarks::switchToAsk(kAsked, turn)], benchmarks::kAskedPlatform);
    });
}

BENCHMARK_TEMPLATE(ask, Asked::Hot, benchmarks::SimpleIniReader)->Name("simpleIniHot")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(ask, Asked::Mixed, benchmarks::SimpleIniReader)->Name("simpleIniMixed")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(ask, Asked::Hot, benchmarks::GKeyFileReader)->Name("gKeyFileHot")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(ask, Asked::Mixed, benchmarks::GKeyFileReader)->Name("gKeyFileMixed")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(ask, Asked::Hot, benchmarks::PropertyTreeReader)->Name("propertyTreeHot")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(ask, Asked::Mixed, benchmarks::PropertyTreeReader)->Name("propertyTreeMixed")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(ask, Asked::Hot, benchmarks::InihReader)->Name("inihHot")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(ask, Asked::Mixed, benchmarks::InihReader)->Name("inihMixed")->Arg(500)->Arg(100000);

}  // namespace
