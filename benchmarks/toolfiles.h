#pragma once

#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <utility>

// The settings files on which the tool's subcommands are measured, each in an old and a new version.

namespace benchmarks {

inline constexpr int kToolFileKeys = 100000;

// Writes the old and the new version of a file. In the new version, one row in oneInSoMany has a different value, and
// one row in 97 has a different key.
class TwoTexts {
public:
    TwoTexts(std::string sharedStart, int oneInSoMany)
        : before(std::move(sharedStart)), after(before), changedOneIn(oneInSoMany) {}

    void header(const std::string& name) {
        const std::string line = '[' + name + "]\n";
        before += line;
        after += line;
    }

    void row(const std::string& key, const std::string& value, const std::string& otherValue,
             const std::string& otherKey) {
        ++rows;
        before.append(key).append("=").append(value).append("\n");
        after.append(rows % 97 == 0 ? otherKey : key).append("=");
        after.append(rows % changedOneIn == 0 ? otherValue : value).append("\n");
    }

    std::string before;
    std::string after;

private:
    int changedOneIn;
    int rows = 0;
};

// Unknown keys, each a switch: the file of the loading benchmark.
inline TwoTexts switchTexts(int changedOneIn) {
    TwoTexts texts("[setting]\n", changedOneIn);
    std::mt19937 random(42);
    for (int key = 0; key < kToolFileKeys; ++key) {
        const std::string name = "generatedswitch" + std::to_string(random() % 1000) + "number" + std::to_string(key);
        std::string list = std::to_string(random() % 500);
        for (auto i = random() % 6; i > 0; --i)
            list += ',' + std::to_string(random() % 500);
        texts.row(name, list, list + ",500", name + "x");
    }
    return texts;
}

inline void limitRows(TwoTexts& texts, const std::string& market, int count) {
    for (int i = 0; i < count; ++i) {
        const std::string row = market + '-' + std::to_string(600000 + i);
        texts.row(row, std::to_string(1000 + i % 7) + ",\xE8\x82\xA1", "900,\xE8\x82\xA1", row + "1");
    }
}

// One order limit per row.
inline TwoTexts limitTexts(int changedOneIn) {
    TwoTexts texts("", changedOneIn);
    texts.header("StkExchangeOrderLimit");
    limitRows(texts, "SH", kToolFileKeys);
    return texts;
}

inline void bondRows(TwoTexts& texts, int count) {
    for (int i = 0; i < count; ++i) {
        const std::string bond = "bond" + std::to_string(i);
        texts.row(bond, "0." + std::to_string(i % 1000 + 1), "2", bond + "x");
    }
}

// One number per name, in lower case: each name is found as written and in upper case.
inline TwoTexts bondTexts(int changedOneIn) {
    TwoTexts texts("", changedOneIn);
    texts.header("StandardBondUseLimit");
    bondRows(texts, kToolFileKeys);
    return texts;
}

inline std::string repeated(const std::string& piece, int count) {
    std::string text = piece;
    for (int i = 1; i < count; ++i)
        text += ',' + piece;
    return text;
}

// A desk's own settings, followed by enough rows of every kind to reach the count.
inline TwoTexts mixedTexts(const std::string& desk, int changedOneIn) {
    std::ostringstream start;
    start << std::ifstream(desk, std::ios::binary).rdbuf();
    TwoTexts texts(start.str(), changedOneIn);
    texts.header("StkExchangeOrderLimit");
    limitRows(texts, "SZ", 30000);
    texts.header("HGTExchangeOrderLimit");
    limitRows(texts, "HGT", 10000);
    texts.header("SgtExchangeOrderLimit");
    limitRows(texts, "SGT", 10000);
    const auto rates = [&texts](const std::string& section, const std::string& market, int fields) {
        texts.header(section);
        for (int i = 0; i < 5000; ++i) {
            const std::string row = market + '-' + std::to_string(100000 + i);
            texts.row(row, repeated("0.000" + std::to_string(i % 9 + 1), fields), repeated("0.5", fields), row + "1");
        }
    };
    rates("StkExchangeRateLimit", "SZ", 7);
    rates("HGTExchangeRateLimit", "HGT", 14);
    rates("SgtExchangeRateLimit", "SGT", 14);
    texts.header("StandardBondUseLimit");
    bondRows(texts, 15000);
    texts.header("FUTURE_SUBSCRIBE_PRODUCTS");
    for (int i = 0; i < 10000; ++i)
        texts.row("ag" + std::to_string(i), "1." + std::to_string(i), "3", "ag" + std::to_string(i) + "x");
    texts.header("specialCombCompacts");
    for (int i = 0; i < 5000; ++i) {
        const std::string number = std::to_string(i);
        const std::string groups = "a" + number + ",b" + number + ";c" + number + ",d" + number;
        texts.row("EXCHANGE" + number, groups, groups + ",e" + number, "EXCHANGE" + number + "x");
    }
    texts.header("monetaryFundUseSloBalanceFirst");
    for (int i = 0; i < 5000; ++i) {
        const std::string platform = std::to_string(1000 + i);
        texts.row(platform, "SSE511880,SZSE159001", "SSE511880", "9" + platform);
    }
    return texts;
}

}  // namespace benchmarks
