#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <iterator>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "tests/config/tradeunit/tradeunitoracle.h"
#include "tests/support/store.h"

using tests::Made;
using tests::oracle::Question;

namespace {

using Random = std::mt19937;

const std::vector<std::string> kMarkets = {
    "SH",       "SZ",  "SH",     "SZ",     "BJ",   "NEEQ", "SSE",  "SZSE", "SHO",  "SZO", "HGT",   "SSEHKEX", "SGT",
    "SZSEHKEX", "DF",  "DCE",    "ZF",     "CZCE", "SF",   "SHFE", "GF",   "GFEX", "IF",  "CFFEX", "INE",     "SHGE",
    "SGE",      "SGX", "GLOBEX", "NASDAQ", "NYSE", "HK",   "HKFE", "LSE",  "US",   "XX",  "sh",    "BJX"};

const std::vector<int> kTypes = {124,    126,    142,    157,    159,    167,    168,    278,
                                 290,    10006,  10019,  10040,  10075,  20000,  100003, 100004,
                                 100013, 100016, 100017, 100021, 100024, 100036, 100103, 100104};

const std::vector<int> kBases = {1062, 1117, 1172, 1606, 1607, 1608, 1609, 1610};

// Both ends of each range of operations that a rule names, and the number beyond each end.
const std::vector<int> kOperations = {-2,   -1,   0,    1,    29,   30,   31,   32,   50,   51,   52,   53,
                                      56,   57,   64,   65,   1028, 1029, 1030, 1031, 1032, 1036, 1037, 1038,
                                      1039, 1051, 1052, 1053, 1054, 1102, 1103, 1104, 1105, 1150, 1151, 1152};

bool happens(Random& random, double probability) {
    return std::uniform_real_distribution<double>(0.0, 1.0)(random) < probability;
}

template <typename Values>
typename Values::value_type oneOf(Random& random, const Values& values) {
    return values[std::uniform_int_distribution<std::size_t>(0, values.size() - 1)(random)];
}

void giveTypes(Random& random, Made& made) {
    const double density = oneOf(random, std::vector<double>{0.0, 0.02, 0.05, 0.15, 0.4});
    for (const int number : kTypes) {
        if (happens(random, density)) made.type(number);
    }
    for (const int number : kBases) {
        if (happens(random, density)) made.base(number);
    }
    for (const char* elsewhere : {"SH", "SZ", "NEEQ", "HK"}) {
        for (const int number : {126, 100017, 20000, 100003, 10006}) {
            if (made.market != elsewhere && happens(random, density / 2)) made.typeOn(elsewhere, number);
        }
    }
    // Numbers that only one of the two type tables knows.
    if (happens(random, density)) made.base(oneOf(random, kTypes));
    if (happens(random, density)) made.type(oneOf(random, kBases));
}

Made generate(Random& random) {
    static const std::vector<std::string> kSuffixes = {"",        "",      "",      ".HK",     ".HKFE",
                                                       ".NASDAQ", ".NYSE", ".AMEX", ".HK.HKFE"};
    Made made = tests::make(oneOf(random, kMarkets));
    made.code += oneOf(random, kSuffixes);
    giveTypes(random, made);
    if (happens(random, 0.6)) {
        made.record();
        if (happens(random, 0.8)) (*made.fields)[2001] = oneOf(random, std::vector<int>{0, 1, 100, 500, -7});
        if (happens(random, 0.7)) (*made.fields)[2009] = oneOf(random, std::vector<int>{0, 1, 1000, -1});
        if (happens(random, 0.7)) (*made.fields)[2013] = oneOf(random, std::vector<int>{0, 2, 20, -1});
    }
    if (happens(random, 0.3)) made.underNewRules();
    for (const int tradeType : {1, 2, 3, 4}) {
        if (happens(random, 0.6)) made.bondRule(tradeType, 10 * tradeType + 3, 10 * tradeType + 4);
    }
    if (happens(random, 0.05)) made.asTechBoardCdr();
    if (happens(random, 0.06)) made.asAdditionalIssue();
    if (happens(random, 0.12)) made.passingFirstTest();
    if (happens(random, 0.12)) made.passingSecondTest();
    return made;
}

// One instrument for each type, so that every rule is tried whatever the random numbers.
void addOneOfEachType(std::vector<Made>& instruments) {
    for (const char* market : {"SH", "SZ", "BJ", "NEEQ", "XX"}) {
        for (const int number : kTypes)
            instruments.push_back(tests::make(market).type(number));
        for (const int number : kBases)
            instruments.push_back(tests::make(market).base(number));
    }
}

// Installs generated instruments and market numbers.
struct Platform {
    std::vector<Made> instruments;
    std::map<std::string, int> numbers;

    Platform(Random& random, int count) {
        addOneOfEachType(instruments);
        std::set<std::string> withTransfer;
        for (int made = 0; made < count; ++made) {
            instruments.push_back(generate(random));
            Made& last = instruments.back();
            // Rules ask for some codes under other markets; a code that several markets share must have no data there.
            if (last.market == "SH" || last.market == "SZ" || last.market == "NEEQ") continue;
            if (!happens(random, 0.05) || !withTransfer.insert(last.market).second) continue;
            last.code = "TRANSFER";
            last.typesElsewhere.clear();
        }
        for (const std::string& market : kMarkets) {
            if (happens(random, 0.9)) numbers[market] = std::uniform_int_distribution<int>(25, 66)(random);
        }
        standin::PlatformData data = tests::emptyPlatform(numbers);
        for (const Made& made : instruments)
            made.addTo(data);
        standin::PlatformData::install(std::move(data));
    }

    int numberOf(const std::string& market) const {
        const auto found = numbers.find(market);
        return found == numbers.end() ? -1 : found->second;
    }
};

// How often each rule decided.
template <std::size_t Count>
struct Decisions {
    const ttservice::internal::UnitRuleText (&rules)[Count];
    std::array<long, Count> times{};

    template <typename Rule>
    void add(Rule rule) {
        ++times.at(static_cast<std::size_t>(rule));
    }
    void expectAllReached() const {
        for (std::size_t index = 0; index < Count; ++index) {
            const bool reachable = rules[index].reach == ttservice::internal::RuleReach::Decides;
            EXPECT_EQ(times.at(index) > 0, reachable) << "rule " << rules[index].number << ", " << times.at(index);
        }
    }
};

// Counts comparisons and shows the first few failures.
struct Comparison {
    long made = 0;
    long failed = 0;

    template <typename Value>
    void compare(const Value& answer, const Value& expected, const Question& question) {
        ++made;
        if (answer == expected) return;
        if (++failed > 10) return;
        ADD_FAILURE() << "answer " << answer << ", expected " << expected << ": " << question.made.text() << ", op "
                      << question.op << (question.flag ? ", flag" : "") << ", switches " << question.switches
                      << ", market number " << question.marketNumber;
    }
};

}  // namespace

TEST(UnitOracle, WordsAndExchangeUnitsAgreeWithTheTables) {
    Random random(51001);
    Comparison comparison;
    Decisions<std::size(ttservice::internal::kStockUnitRules)> words{ttservice::internal::kStockUnitRules};
    Decisions<std::size(ttservice::internal::kTradeUnitRules)> units{ttservice::internal::kTradeUnitRules};
    for (int round = 0; round < 40; ++round) {
        const Platform platform(random, 1500);
        for (const Made& made : platform.instruments) {
            const Question question{made, -1, false, 0, platform.numberOf(made.market)};
            comparison.compare(tests::wordOf(made), firstThatHolds(tests::oracle::wordTable(), question), question);
            comparison.compare(tests::exchangeUnitOf(made),
                               firstThatHolds(tests::oracle::exchangeTable(), question)(question), question);
            words.add(ttservice::internal::stockUnit(made.market, made.code).rule);
            units.add(ttservice::internal::stockTradeUnit(made.market, made.code).rule);
        }
    }
    EXPECT_EQ(comparison.failed, 0);
    EXPECT_GT(comparison.made, 120000);
    words.expectAllReached();
    units.expectAllReached();
}

TEST(UnitOracle, MinimumUnitsAgreeWithTheTablesInOverAMillionCombinations) {
    Random random(51002);
    const Platform platform(random, 1500);
    Comparison comparison;
    Decisions<std::size(ttservice::internal::kMinUnitRules)> operations{ttservice::internal::kMinUnitRules};
    Decisions<std::size(ttservice::internal::kUiUnitRules)> forms{ttservice::internal::kUiUnitRules};
    tests::LoadedStore store;
    for (unsigned switches = tests::kNone; switches <= tests::kAllSwitches; ++switches) {
        store.load(tests::settingsWith(switches));
        for (const Made& made : platform.instruments) {
            for (const int op : kOperations) {
                const Question asked{made, op, false, switches, -1};
                comparison.compare(tests::minUnitOf(made, op), firstThatHolds(tests::oracle::minTable(), asked)(asked),
                                   asked);
                for (const bool flag : {false, true}) {
                    const Question form{made, op, flag, switches, -1};
                    comparison.compare(tests::formUnitOf(made, flag, op),
                                       firstThatHolds(tests::oracle::formTable(), form)(form), form);
                }
            }
            // Finding out which rule decides doubles the work, so a few operations represent all.
            for (const int op : {-1, 1, 51, 57, 1029, 30}) {
                using tests::kStoreSwitches;
                operations.add(ttservice::internal::tradeMinUnit(made.market, made.code, op, kStoreSwitches).rule);
                for (const bool flag : {false, true})
                    forms.add(ttservice::internal::uiMinUnit(made.market, made.code, flag, op, kStoreSwitches).rule);
            }
        }
    }
    EXPECT_EQ(comparison.failed, 0);
    EXPECT_GT(comparison.made, 1000000);
    operations.expectAllReached();
    forms.expectAllReached();
}
