// The platform data file on arbitrary bytes. A rejected file changes nothing and gives a one-line message; an accepted
// file answers every query with what the JSON library finds in it.

#include <standin/platformdatafile.h>

#include <charconv>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>

#include "fuzz/support/target.h"

namespace {

using fuzz::require;
using Json = nlohmann::json;
using standin::PlatformData;

void checkMessage(const std::string& message) {
    require(message.rfind("fuzz.json: ", 0) == 0 && message.size() > 11, "a refusal names the file", message);
    require(!fuzz::hasControls(message), "a refusal is one line of text", message);
}

// A code that matches the pattern.
std::string codeOf(const std::string& pattern) {
    const bool isPrefix = !pattern.empty() && pattern.back() == '*';
    return isPrefix ? pattern.substr(0, pattern.size() - 1) + "7" : pattern;
}

template <typename Holds>
void checkSets(const Json& data, const char* member, const Holds& holds) {
    const auto found = data.find(member);
    if (found == data.end()) return;
    for (const Json& entry : *found) {
        for (const Json& pattern : entry.at("codes")) {
            require(holds(entry, entry.at("market").get<std::string>(), codeOf(pattern.get<std::string>())),
                    "what is listed is answered", member);
        }
    }
}

// The number that a member's name spells in plain form; none for "007", which may equal another name's number.
std::optional<int> plainNumber(const std::string& name) {
    int number = 0;
    std::from_chars(name.data(), name.data() + name.size(), number);
    return std::to_string(number) == name ? std::optional<int>(number) : std::nullopt;
}

bool hasPlainNames(const Json& object) {
    for (const auto& member : object.items()) {
        if (!plainNumber(member.key())) return false;
    }
    return true;
}

void checkNumbers(const Json& data, const PlatformData& answers) {
    if (data.contains("markets")) {
        for (const auto& member : data["markets"].items())
            require(answers.marketNumber(member.key()) == member.value().get<int>(), "markets have their numbers");
    }
    if (data.contains("bondTradeTypes") && hasPlainNames(data["bondTradeTypes"])) {
        for (const auto& member : data["bondTradeTypes"].items()) {
            require(answers.bondTradeType(*plainNumber(member.key())) == member.value().get<int>(),
                    "operations have their bond trade types");
        }
    }
    if (data.contains("rights")) {
        for (const auto& group : data["rights"].items()) {
            for (const Json& product : group.value())
                require(answers.hasRight(group.key(), product.get<std::string>()), "rights are held");
        }
    }
}

void checkRecords(const Json& data, const PlatformData& answers) {
    if (data.contains("instruments")) {
        for (const Json& entry : data["instruments"]) {
            require(answers.instrument(entry.at("market").get<std::string>(), entry.at("code").get<std::string>()) !=
                        nullptr,
                    "an instrument has a record");
        }
    }
    if (data.contains("bondRules")) {
        for (const Json& entry : data["bondRules"]) {
            require(answers.bondRule(entry.at("market").get<std::string>(), entry.at("code").get<std::string>(),
                                     entry.at("tradeType").get<int>()) != nullptr,
                    "a bond has its rule");
        }
    }
}

void checkAnswers(const Json& data, const PlatformData& answers) {
    using Text = const std::string&;
    checkNumbers(data, answers);
    checkRecords(data, answers);
    checkSets(data, "stockTypes", [&](const Json& entry, Text market, Text code) {
        return answers.isStockType(entry.at("type").get<int>(), market, code);
    });
    checkSets(data, "baseTypes", [&](const Json& entry, Text market, Text code) {
        return answers.isBaseType(entry.at("type").get<int>(), market, code);
    });
    checkSets(data, "newRulesBonds",
              [&](const Json&, Text market, Text code) { return answers.isNewRulesBond(market, code); });
    checkSets(data, "techBoardCdr",
              [&](const Json&, Text market, Text code) { return answers.isTechBoardCdr(market, code); });
    checkSets(data, "issueAdditional",
              [&](const Json&, Text market, Text code) { return answers.isIssueAdditional(market, code); });
    if (!data.contains("marketTests")) return;
    checkSets(data["marketTests"], "first",
              [&](const Json&, Text market, Text code) { return answers.passesFirstMarketTest(market, code); });
    checkSets(data["marketTests"], "second",
              [&](const Json&, Text market, Text code) { return answers.passesSecondMarketTest(market, code); });
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    PlatformData data;
    data.setMarketNumber("\x01", 77);  // inputs do not contain this market by chance
    std::string error;
    if (!standin::parsePlatformData(input, "fuzz.json", data, error)) {
        checkMessage(error);
        require(data.marketNumber("\x01") == 77, "a refused text changes nothing");
        return;
    }
    std::string_view text = input;
    if (text.substr(0, 3) == "\xEF\xBB\xBF") text.remove_prefix(3);
    const Json read = Json::parse(text, nullptr, false);
    require(read.is_object(), "what is taken is a JSON object");
    checkAnswers(read, data);
}

TT_FUZZ_TARGET
