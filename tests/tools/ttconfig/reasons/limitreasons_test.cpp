// The reasons of `ttconfig limits`: the named row, default or rule gives what the store and the platform answer. The
// test looks each up independently, in the lines of the settings file, in the platform data's JSON and in the sentences
// of the rules.

#include <gtest/gtest.h>
#include <standin/platformdatafile.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <map>
#include <nlohmann/json.hpp>
#include <random>
#include <regex>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/store.h"
#include "tests/tools/ttconfig/support/toolrun.h"
#include "ttconfig/listings/limitfacts.h"

namespace {

using nlohmann::json;
using ttconfig::Answer;
using ttconfig::LimitBasis;
using ttconfig::LimitFact;
using ttconfig::LimitQuestion;

using Instrument = std::pair<std::string, std::string>;

const std::string kSamples = TT_SOURCE_DIR "/samples/";

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> all(1);
    for (const char c : text) {
        if (c == separator) {
            all.emplace_back();
        } else {
            all.back() += c;
        }
    }
    return all;
}

std::string upper(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

// Every instrument that the platform data name by full code.
std::set<Instrument> instrumentsOf(const json& platform) {
    std::set<Instrument> all;
    for (const char* member : {"instruments", "bondRules"}) {
        for (const json& row : platform.at(member))
            all.emplace(row.at("market"), row.at("code"));
    }
    for (const char* member : {"stockTypes", "baseTypes", "newRulesBonds", "techBoardCdr", "issueAdditional"}) {
        for (const json& row : platform.at(member)) {
            for (const std::string code : row.at("codes")) {
                if (code.find('*') == std::string::npos) all.emplace(row.at("market"), code);
            }
        }
    }
    return all;
}

// The answer that a reason states, derived from the texts it points to.
class ReasonCheck {
public:
    ReasonCheck(std::string settings, const json& platformData)
        : lines(split(settings, '\n')), text(std::move(settings)), platform(platformData) {}

    void check(const LimitQuestion& question) {
        for (const LimitFact& fact : ttconfig::limitFacts(text, question)) {
            SCOPED_TRACE(question.market + " " + question.code + " price type " +
                         std::to_string(question.priceType.value_or(-1)) + " op " +
                         std::to_string(question.op.value_or(-1)) + ": " + fact.name);
            if (fact.name == "buys") continue;
            EXPECT_EQ(json(fact.answer), said(fact, question));
        }
    }

    std::map<std::string, int> seen;   // reasons by kind
    std::set<std::string> rulesNamed;  // "minUnit 16b"

private:
    json said(const LimitFact& fact, const LimitQuestion& question) {
        if (const auto* rule = fact.explanation.unitRule) {
            ++seen["rule"];
            rulesNamed.insert(fact.name + " " + std::string(rule->number));
            return saidByRule(std::string(rule->meaning), question);
        }
        const LimitBasis& limit = fact.explanation.limit.value();
        if (limit.row == nullptr) {
            ++seen["default"];
            return valueWithoutRow(fact.name);
        }
        ++seen[limit.category.word.empty() ? "code row" : "category row"];
        const std::string word = limit.category.word.empty() ? upper(question.code) : std::string(limit.category.word);
        EXPECT_EQ(limit.item.substr(limit.item.find('-') + 1), word);
        checkThatItStandsThere(limit);
        return saidByFields(fact.name, split(std::string(limit.row->value), ','));
    }

    void checkThatItStandsThere(const LimitBasis& limit) const {
        const standin::SettingsEntry& row = *limit.row;
        const std::string& item = limit.item;
        ASSERT_LE(row.line, lines.size());
        EXPECT_EQ(lines[row.line - 1], std::string(row.key) + "=" + std::string(row.value));
        std::size_t header = row.line - 1;
        while (header > 0 && lines[header][0] != '[')
            --header;
        EXPECT_EQ(lines[header], "[" + std::string(limit.section) + "]");
        bool isNamed = false;
        for (const std::string& written : split(upper(std::string(row.key)), ','))
            isNamed |= written == item || (written.find('-') == std::string::npos && written + "-" + written == item);
        EXPECT_TRUE(isNamed) << item << " in " << row.key;
    }

    static json valueWithoutRow(const std::string& name) {
        if (name == "blockTradeAmount") return 1000000;
        if (name == "orderLimit" || name == "blockTradeQuantity") return json::array({1000000, "股"});
        return json(std::vector<double>(name == "stockRates" ? 7 : 14, 0.0));
    }

    static json saidByFields(const std::string& name, const std::vector<std::string>& fields) {
        if (name == "blockTradeAmount") return std::atoi(fields.at(2).c_str());
        if (name == "orderLimit" || name == "blockTradeQuantity") {
            return json::array({std::atoi(fields.at(0).c_str()), fields.at(1)});
        }
        json numbers = json::array();
        for (const std::string& field : fields)
            numbers.push_back(std::strtod(field.c_str(), nullptr));
        if (name == "stockRates") numbers.at(6) = std::atoi(fields.at(6).c_str());
        return numbers;
    }

    // A sentence ends in the answer: a number, a field of the record, a quantity of the bond rule, or a word.
    json saidByRule(const std::string& sentence, const LimitQuestion& question) const {
        static const std::regex kNumber("(?:takes?|trades? in|unit is) ([0-9]+)");
        static const std::regex kField("field ([0-9]+)");
        std::smatch match;
        if (std::regex_search(sentence, match, kNumber)) {
            return std::stoi(match[1]);
        }
        if (sentence.find("least purchase") != std::string::npos) return bondRule(question).at("buyMinUnit");
        if (sentence.find("least sale") != std::string::npos) return bondRule(question).at("sellMinUnit");
        if (std::regex_search(sentence, match, kField)) return recordField(match[1], question);
        const std::pair<const char*, const char*> words[] = {
            {"in shares", "股"}, {"in fund units", "份"}, {"in bonds", "张"}, {"in lots", "手"}, {"no unit word", ""}};
        for (const auto& [word, unit] : words) {
            if (sentence.find(word) != std::string::npos) return unit;
        }
        return "not understood: " + sentence;
    }

    static json valueOr(const json& object, const std::string& member, int otherwise) {
        return object.contains(member) ? object.at(member) : json(otherwise);
    }

    json recordField(const std::string& field, const LimitQuestion& question) const {
        for (const json& row : platform.at("instruments")) {
            if (row.at("market") == question.market && row.at("code") == question.code) {
                return valueOr(row.contains("fields") ? row.at("fields") : json::object(), field, 0);
            }
        }
        return "no record";
    }

    json bondRule(const LimitQuestion& question) const {
        const json type = valueOr(platform.at("bondTradeTypes"), std::to_string(question.op.value_or(-1)), 1);
        for (const json& row : platform.at("bondRules")) {
            if (row.at("market") == question.market && row.at("code") == question.code && row.at("tradeType") == type) {
                return row;
            }
        }
        return "no bond rule";
    }

    std::vector<std::string> lines;
    standin::SettingsText text;
    const json& platform;
};

class LimitReasons : public testing::Test {
protected:
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(standin::installPlatformFile(kSamples + "platform.json", error)) << error;
        platform = json::parse(tests::fileText(kSamples + "platform.json"));
    }

    // Loads the settings and checks these instruments.
    void check(const std::string& settings, const std::set<Instrument>& instruments) {
        store.load(settings);
        ReasonCheck each(settings, platform);
        for (const auto& [market, code] : instruments) {
            each.check({market, code, {}, {}});
            for (const int priceType : {0, 50, 84, 117, 141}) {
                for (const int op : {0, 30, 31, 49, 51, 57, 58, 1029, 1037})
                    each.check({market, code, priceType, op});
            }
        }
        for (const auto& [kind, count] : each.seen)
            seen[kind] += count;
        rulesNamed.insert(each.rulesNamed.begin(), each.rulesNamed.end());
    }

    tests::LoadedStore store;
    json platform;
    std::map<std::string, int> seen;
    std::set<std::string> rulesNamed;
};

// --- generated settings: rows of all sections for a few instruments, in every shape that a row can have

class MadeSettings {
public:
    explicit MadeSettings(unsigned seed) : random(seed) {}

    std::string text() {
        std::string all;
        for (int i = 0; i < 40; ++i) {
            if (i == 0 || oneIn(4)) all += "[" + any(sections) + "]\n";
            all += key() + "=" + value() + "\n";
        }
        return all;
    }

private:
    const std::vector<std::string> sections = {
        "StkExchangeOrderLimit", "HGTExchangeOrderLimit", "SgtExchangeOrderLimit", "StkExchangeDazongOrderLimit",
        "StkExchangeRateLimit",  "HGTExchangeRateLimit",  "SgtExchangeRateLimit"};
    const std::vector<std::string> items = {
        "SH-600000",  "sh-600000", "SH-STOCK",  "Sh-Stock",    "SH-ETF",     "SH-FUND",   "SH-TECHSTOCKMARKET",
        "SH",         "sh",        "SZ-LOAN",   "SZ-123001",   "HGT-STOCK",  "HGT-00700", "HGT-00005",
        "HK-00005",   "HK-DEF",    "SGT-STOCK", "SGT-00005",   "SHO-MARKET", "SHO-LIMIT", "NEEQ-DEF",
        "NEEQ-STOCK", "-",         "",          "SH-DEF-MORE", "SH-DEF",     "SHO-DEF",   "SSEHKEX-STOCK"};
    const std::vector<int> fieldCounts = {2, 3, 7, 14, 2, 3, 7, 14, 1, 6, 8, 13};

    bool oneIn(unsigned count) { return random() % count == 0; }

    template <typename Value>
    Value any(const std::vector<Value>& values) {
        return values[random() % values.size()];
    }

    std::string key() {
        std::string text = any(items);
        while (text.empty() || oneIn(2))
            text += "," + any(items);
        return text;
    }

    // All fields of all rows differ.
    std::string value() {
        const int count = any(fieldCounts);
        std::string text = field();
        for (int i = 1; i < count; ++i)
            text += "," + field();
        return text;
    }

    std::string field() { return std::to_string(++last) + (oneIn(5) ? "x" : oneIn(5) ? ".5" : ""); }

    std::mt19937 random;
    int last = 0;
};

}  // namespace

TEST_F(LimitReasons, ExplainTheAnswersForEverySampleInstrument) {
    const std::set<Instrument> instruments = instrumentsOf(platform);
    ASSERT_GE(instruments.size(), 60U);
    check(tests::fileText(kSamples + "settings.ini"), instruments);
    // Covers both outcomes of the rules that depend on the new bond rules and the registered issues.
    check("[setting]\nshusenewbondrules=0\nszusenewbondrules=0\nuseregistiporules=0\n", instruments);
    check("[setting]\nshusenewbondrules=1\nszusenewbondrules=1\nuseregistiporules=1\n", instruments);
    for (const char* kind : {"code row", "category row", "default", "rule"})
        EXPECT_GT(seen[kind], 50) << kind;
    EXPECT_GE(rulesNamed.size(), 70U);
}

TEST_F(LimitReasons, ExplainTheAnswersWhateverTheRowsLookLike) {
    const std::set<Instrument> instruments = {{"SH", "600000"}, {"sh", "600000"},   {"SH", "510050"}, {"SH", "688001"},
                                              {"SH", "SH"},     {"SH", "DEF-MORE"}, {"SZ", "123001"}, {"HGT", "00700"},
                                              {"HK", "00005"},  {"hk", "00005"},    {"SGT", "00981"}, {"SSEHKEX", "1"},
                                              {"SHO", "1"},     {"NEEQ", "430001"}, {"", ""}};
    for (unsigned seed = 0; seed < 60 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        check(MadeSettings(seed).text(), instruments);
    }
    for (const char* kind : {"code row", "category row", "default"})
        EXPECT_GT(seen[kind], 1000) << kind;
}
