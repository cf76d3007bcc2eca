#include "tests/tools/ttconfig/support/madesettings.h"

#include <set>

#include "traderbase/base/config/internal/switches/platformswitchtable.h"

namespace tests {

namespace {

using Texts = std::vector<std::string>;

const Texts kPlatforms = {"12", "15", "0", "-5", "3", "2", "5"};
const Texts kPlatformPieces = {"12", "15", "0", "-5", "3", "+12", "012", " 12", "12 ", "", "x", "12x", "12:1"};
const Texts kNumbers = {"1", "0", "7", "-1", "+1", "01", "1.5", "x", "", "2147483648", ".5", "1e3", "9x", " 1"};
const Texts kFlags = {"1", "0", "01", "-0", "2", "true", "", "+1"};
const Texts kMarkets = {"SH", "SZ", "sh", "HGT", "SGT", "HK", "hk", "SSEHKEX", "SHO", "NEEQ", "BJ", "SHFE", "", "IF"};
const Texts kCodes = {"600000", "510050", "123001", "00700", "AbC", "ABC", "abc", "688001", "", "10007001", "511880"};
const Texts kCategories = {"STOCK", "ETF", "FUND", "LOAN", "DEF", "stock", "LIMIT", "MARKET", "PIF", "IPO", "CDR"};
const Texts kProducts = {"P1", "P2", "p1", "A", "B", "C", ""};
const Texts kTypes = {"TWAP", "VWAP", "POV", "twap", ""};
const Texts kFunds = {"SH511880", "SH600000", "ALL", "", "SZ123001", "ALL"};

// A few switches for both files and questions, so that they coincide.
Texts fewSwitches() {
    Texts keys = {"notneedcalcenbalevoluebyenablemargin", "notqueryalgopermission", "needmaxamount", "unknown"};
    using namespace ttservice::internal;
    for (std::size_t i = 0; i < kPlatformSwitchCount; i += 9)
        keys.emplace_back(kPlatformSwitches[i].key);
    return keys;
}

bool isIn(const char* const* first, std::size_t count, const std::string& name) {
    for (std::size_t i = 0; i < count; ++i) {
        if (name == first[i]) return true;
    }
    return false;
}

template <std::size_t Count>
bool isOneOf(const char* const (&names)[Count], const std::string& name) {
    return isIn(names, Count, name);
}

constexpr const char* kAskedByMarket[] = {"getOrderLimit",
                                          "getDazongOrderNumLimit",
                                          "getDazongOrderTradeAmountLimit",
                                          "getRateLimitPtr",
                                          "getHGTExchangeRateLimitPtr",
                                          "getSgtExchangeRateLimitPtr",
                                          "getStockUnit",
                                          "getStockTradeUnit",
                                          "getTradeMinUnit",
                                          "getUiMinUnit",
                                          "useNewBondRules",
                                          "isNeedFixPriceByNonTradeMonetaryFund",
                                          "getTradingTime"};
constexpr const char* kAskedByKey[] = {"isSomePt", "getPts"};
constexpr const char* kAskedByProduct[] = {"getContractInfo", "isHttpProductID", "getSingleMarginProductName"};

}  // namespace

std::string MadeSettings::list(const Texts& pieces, const char* separator, unsigned most) {
    std::string all;
    for (auto i = random() % (most + 1); i > 0; --i)
        all += any(pieces) + (i > 1 || oneIn(8) ? separator : "");
    return all;
}

std::string MadeSettings::perPlatform(const Texts& values) {
    std::string all;
    for (auto i = random() % 5; i > 0; --i)
        all += (oneIn(3) ? "" : any(kPlatformPieces) + ":") + any(values) + (i > 1 || oneIn(3) ? ";" : "");
    return all;
}

std::string MadeSettings::platformPairs(const Texts& payloads) {
    std::string all;
    for (auto i = random() % 4; i > 0; --i)
        all += any(kPlatformPieces) + (oneIn(8) ? "" : ":") + list(payloads, ",", 3) + (i > 1 ? ";" : "");
    return all;
}

std::string MadeSettings::limitKey() {
    std::string key;
    for (auto i = random() % 3 + 1; i > 0; --i)
        key += any(kMarkets) + (oneIn(9) ? "" : "-") + (oneIn(2) ? any(kCodes) : any(kCategories)) + (i > 1 ? "," : "");
    return key;
}

std::string MadeSettings::numbers(unsigned count) {
    std::string all;
    if (oneIn(6)) ++count;
    for (unsigned i = 0; i < count; ++i)
        all += (i == 0 ? "" : ",") + (oneIn(2) ? std::to_string(random() % 1000) : any(kNumbers));
    return all;
}

std::string MadeSettings::value(ValueGrammar grammar) {
    switch (grammar) {
        case ValueGrammar::Flag:
        case ValueGrammar::Integer:
        case ValueGrammar::Decimal:
        case ValueGrammar::Text:
            return any(kNumbers);
        case ValueGrammar::PerPlatformFlag:
        case ValueGrammar::PerPlatformFlagKeepEmpty:
            return perPlatform(kFlags);
        case ValueGrammar::PerPlatformInteger:
        case ValueGrammar::PerPlatformDecimalKeepEmpty:
            return perPlatform(kNumbers);
        case ValueGrammar::OrderLimitRow:
            return numbers(2);
        case ValueGrammar::BlockTradeLimitRow:
            return numbers(3);
        case ValueGrammar::StockRateRow:
        case ValueGrammar::FixedIncomeNumbers:
            return numbers(7);
        case ValueGrammar::ConnectRateRow:
            return numbers(14);
        case ValueGrammar::PlatformRatioPairs:
            return platformPairs(kNumbers);
        case ValueGrammar::PlatformCodes:
            return platformPairs(kCodes);
        case ValueGrammar::ProductGroups:
            return list({"P1,P2", "A,B,A", "p1,C", ",", "B", "C,P2,P1"}, ";", 3);
        case ValueGrammar::MarketCodes:
            return list({"SH:511880,600000", "SZ:123001", "SH:", ":", "SH", "HK:00700,"}, ";", 3);
        case ValueGrammar::Funds:
            return list(kFunds, ",", 2);
        case ValueGrammar::KeyAlone:
            return "";
        case ValueGrammar::Contracts:
            return list({"P1:x,1.5,7,3,1", "P1:y,0.5,8,3,0", "P2:z,1,2,3", "P2:", "A:b:c", "p1:t,.5,1,2,1", "P1"}, ";",
                        4);
        case ValueGrammar::ContractTypes:
            return list({"P1:TWAP|VWAP", "P2:POV", "p1:TWAP", "P1:", "none:TWAP", "P2", "P2:TWAP|POV"}, ";", 4);
        case ValueGrammar::PairsBySemicolon:
            return list({"a:b", "c:d", "a", "a:b:c", ":"}, ";", 3);
        case ValueGrammar::TextsByCommaDropEmpty:
            return list(kProducts, ",", 4);
        case ValueGrammar::TextsByComma:
            return list(kTypes, ",", 4);
        case ValueGrammar::TextsBySemicolon:
            return list(kTypes, ";", 4);
        case ValueGrammar::TagAndTimes:
            return any({"12:93000,100000", "12", "", "15:", ":1", "12:1:2", "-5:93000"});
    }
    return "";
}

std::string MadeSettings::sectionText(const std::string& section) {
    using namespace ttservice::internal;
    std::string text = "[" + section + "]\n";
    for (const SettingKey& key : kSettingKeys) {
        if (key.section != section) continue;
        if (key.key != "*") {
            for (int i = oneIn(3) ? 0 : oneIn(6) ? 2 : 1; i > 0; --i)
                text += std::string(key.key) + "=" + value(key.grammar) + "\n";
            continue;
        }
        const bool isLimit = section.find("Exchange") != std::string::npos;
        const bool isByPlatform = key.grammar == ValueGrammar::Funds;
        for (auto i = random() % 12; i > 0; --i) {
            const std::string rowKey = isLimit        ? limitKey()
                                       : isByPlatform ? any(kPlatformPieces)
                                       : oneIn(2)     ? any(kProducts)
                                                      : any(kCodes);
            text += rowKey + "=" + value(key.grammar) + "\n";
        }
    }
    return text;
}

std::string MadeSettings::text() {
    std::set<std::string> sections;
    for (const auto& key : ttservice::internal::kSettingKeys)
        sections.emplace(key.section);
    std::string all = oneIn(9) ? "needmaxamount=12\n" : "";
    for (const std::string& section : sections) {
        if (oneIn(7)) continue;
        all += sectionText(section);
        if (section != "setting") continue;
        const Texts switches = fewSwitches();
        for (auto i = random() % 20; i > 0; --i)
            all += any(switches) + "=" + list(kPlatformPieces, ",", 5) + "\n";
    }
    return all;
}

int MadeQuestions::number() {
    static const int kAsked[] = {12, 15, 0, -5, 3, 2, 3, 4, 5, 84, 57, 1029, 30, 2147483647, -1};
    return kAsked[below(std::size(kAsked))];
}

std::string MadeQuestions::text(const std::string& call, std::size_t place) {
    static const Texts kSwitches = fewSwitches();
    const auto any = [this](const Texts& texts) { return texts[below(texts.size())]; };
    if (isOneOf(kAskedByKey, call)) return below(4) == 0 ? "refLimit" : any(kSwitches);
    if (isOneOf(kAskedByProduct, call)) return any(kProducts);
    if (call == "getProductIdbyAlgoName") return any(kTypes);
    if (call == "isMonetaryFundUseSloBalanceFirst") return place == 1 ? any(kMarkets) : any(kCodes);
    if (isOneOf(kAskedByMarket, call)) {
        if (place == 0) return any(kMarkets);
        return below(5) == 0 ? any(kCategories) : any(kCodes);
    }
    return below(3) == 0 ? any(kProducts) : any(kCodes);
}

}  // namespace tests
