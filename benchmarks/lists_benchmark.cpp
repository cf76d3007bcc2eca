// The cost of reading a very long platform list, with all entries good or all bad, compared with one hand-written pass
// over the digits and with Boost's splitting and conversion.

#include <benchmark/benchmark.h>

#include <boost/algorithm/string/classification.hpp>
#include <boost/algorithm/string/split.hpp>
#include <boost/lexical_cast.hpp>
#include <boost/lexical_cast/try_lexical_convert.hpp>
#include <fstream>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "benchmarks/generatedsettings.h"
#include "traderbase/base/config/internal/platforms/platformlist.h"

namespace {

constexpr int kTokens = 1000000;

enum class Tokens { Good, Bad };

std::string listOf(Tokens tokens) {
    std::mt19937 random(42);
    std::string text;
    for (int i = 0; i < kTokens; ++i) {
        if (i > 0) text += ',';
        text += std::to_string(random() % 100000);
        if (tokens == Tokens::Bad) text += 'x';
    }
    return text;
}

std::vector<int> ours(const std::string& text) {
    return ttservice::internal::readPlatformList(text);
}

// The simplest loop that tells numbers from other text; it does not handle overflow.
std::vector<int> onePass(const std::string& text) {
    std::vector<int> ids;
    int id = 0;
    bool good = true;
    for (const char character : text) {
        if (character == ',') {
            if (good) ids.push_back(id);
            id = 0;
            good = true;
        } else if (character >= '0' && character <= '9') {
            id = id * 10 + (character - '0');
        } else {
            good = false;
        }
    }
    if (good) ids.push_back(id);
    return ids;
}

std::vector<std::string> pieces(const std::string& text) {
    std::vector<std::string> all;
    boost::split(all, text, boost::is_any_of(","));
    return all;
}

std::vector<int> lexicalCast(const std::string& text) {
    std::vector<int> ids;
    for (const std::string& piece : pieces(text)) {
        try {
            ids.push_back(boost::lexical_cast<int>(piece));
        } catch (const boost::bad_lexical_cast&) {
            continue;
        }
    }
    return ids;
}

std::vector<int> tryLexicalConvert(const std::string& text) {
    std::vector<int> ids;
    for (const std::string& piece : pieces(text)) {
        int id = 0;
        if (boost::conversion::try_lexical_convert(piece, id)) ids.push_back(id);
    }
    return ids;
}

template <std::vector<int> (*kRead)(const std::string&), Tokens kPieces>
void read(benchmark::State& state) {
    const benchmarks::QuietStandardError quiet;
    const std::string text = listOf(kPieces);
    for (auto _ : state)
        benchmark::DoNotOptimize(kRead(text));
    state.SetItemsProcessed(state.iterations() * kTokens);
}

// With a real stream, one write per line.
void readToNullDevice(benchmark::State& state) {
    std::filebuf nullDevice;
    nullDevice.open("/dev/null", std::ios::out);
    std::streambuf* const before = std::cerr.rdbuf(&nullDevice);
    const std::string text = listOf(Tokens::Bad);
    for (auto _ : state)
        benchmark::DoNotOptimize(ours(text));
    std::cerr.rdbuf(before);
}

BENCHMARK_TEMPLATE(read, ours, Tokens::Good)->Name("ours/good")->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(read, ours, Tokens::Bad)->Name("ours/bad")->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(read, onePass, Tokens::Good)->Name("onePass/good")->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(read, onePass, Tokens::Bad)->Name("onePass/bad")->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(read, tryLexicalConvert, Tokens::Good)->Name("tryConvert/good")->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(read, tryLexicalConvert, Tokens::Bad)->Name("tryConvert/bad")->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(read, lexicalCast, Tokens::Good)->Name("lexicalCast/good")->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(read, lexicalCast, Tokens::Bad)->Name("lexicalCast/bad")->Unit(benchmark::kMillisecond);
BENCHMARK(readToNullDevice)->Name("oursToNullDevice/bad")->Unit(benchmark::kMillisecond);

}  // namespace
