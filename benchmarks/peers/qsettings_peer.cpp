// QSettings in a process of its own: switch queries and loading, on the same inputs as the other programs.
// "qsettings_peer --peak FILE" loads the file and ends, so that its peak memory can be read from outside.

#include <benchmark/benchmark.h>

#include <QSettings>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "benchmarks/generatedsettings.h"
#include "benchmarks/loading.h"
#include "benchmarks/measuring.h"
#include "benchmarks/switchlists.h"

namespace {

using benchmarks::Asked;

std::unique_ptr<QSettings> loaded(const std::string& path) {
    return std::make_unique<QSettings>(QString::fromStdString(path), QSettings::IniFormat);
}

bool lists(const QSettings& settings, const QString& key, int platformId) {
    const QStringList pieces = settings.value(key).toStringList();
    return std::any_of(pieces.begin(), pieces.end(),
                       [platformId](const QString& piece) { return piece.toInt() == platformId; });
}

template <Asked kAsked>
void ask(benchmark::State& state) {
    std::vector<QString> keys;
    for (const std::string& key : benchmarks::switchKeys())
        keys.push_back("setting/" + QString::fromStdString(key));
    const std::string& path = benchmarks::switchFile(static_cast<int>(state.range(0)), benchmarks::switchKeys()).path();
    const auto settings = loaded(path);
    if (!lists(*settings, keys.front(), benchmarks::kAskedPlatform)) {
        state.SkipWithError("the reader does not know what it has read");
        return;
    }
    benchmarks::askInTurn(state, benchmarks::askedCount(kAsked), [&](std::size_t turn) {
        return lists(*settings, keys[benchmarks::switchToAsk(kAsked, turn)], benchmarks::kAskedPlatform);
    });
}

// QSettings caches the content of unchanged files for a while, so each load gets a file of its own.
void load(benchmark::State& state) {
    const std::string text = benchmarks::generatedText(static_cast<int>(state.range(0)));
    struct Loading {
        std::unique_ptr<benchmarks::TemporaryFile> file;
        std::unique_ptr<QSettings> settings;
    };
    benchmarks::timeLoad(
        state,
        [&] {
            return Loading{std::make_unique<benchmarks::TemporaryFile>(text), nullptr};
        },
        [](Loading& loading, const std::string&) {
            loading.settings = loaded(loading.file->path());
            benchmark::DoNotOptimize(loading.settings->value("setting/nosuchkey"));
        });
}

BENCHMARK_TEMPLATE(ask, Asked::Hot)->Name("askHot")->Arg(500)->Arg(100000);
BENCHMARK_TEMPLATE(ask, Asked::Mixed)->Name("askMixed")->Arg(500)->Arg(100000);
BENCHMARK(load)->Apply(benchmarks::loadSizes);

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], "--peak") == 0) {
        return loaded(argv[2])->contains("setting/nosuchkey") ? 1 : 0;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
