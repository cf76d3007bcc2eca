#pragma once

#include <set>
#include <string>
#include <vector>

#include <ttplatform/instruments.h>
#include <ttplatform/stocktypecenter.h>

// A second implementation of the limit tables' category words: lists of types, searched from the top.

namespace tests {

// The base library and the stock type centre number their types independently.
enum class TypeSource { Base, Center };

struct InstrumentType {
    TypeSource source;
    int number;
};

// An instrument of this type has this word, unless an earlier rule matches.
struct CategoryRule {
    InstrumentType type;
    std::string word;
};

// A table's rules in order, and the word of an instrument that matches none of them.
struct CategoryTable {
    std::vector<CategoryRule> rules;
    std::string otherwise;
};

inline const CategoryTable kOrderLimitCategories{{{{TypeSource::Base, 1062}, "IPO"},
                                                  {{TypeSource::Base, 1117}, "IPO"},
                                                  {{TypeSource::Base, 1172}, "TECHSTOCKMARKET"},
                                                  {{TypeSource::Center, 100003}, "STOCK"},
                                                  {{TypeSource::Center, 100024}, "MONEYFUND"},
                                                  {{TypeSource::Center, 100016}, "LOAN"},
                                                  {{TypeSource::Center, 100103}, "PIF"},
                                                  {{TypeSource::Center, 100004}, "FUND"},
                                                  {{TypeSource::Center, 100013}, "ETF"},
                                                  {{TypeSource::Center, 126}, "REPURCHASE"},
                                                  {{TypeSource::Center, 100017}, "REPURCHASE"}},
                                                 "DEF"};

inline const CategoryTable kBlockTradeQuantityCategories{{{{TypeSource::Center, 100003}, "STOCK"},
                                                          {{TypeSource::Center, 100104}, "DIRECTIONALCONVERTIBALEBOND"},
                                                          {{TypeSource::Center, 100103}, "PIF"},
                                                          {{TypeSource::Center, 100016}, "LOAN"},
                                                          {{TypeSource::Center, 100004}, "FUND"},
                                                          {{TypeSource::Center, 100013}, "FUND"}},
                                                         "STOCK"};

inline const CategoryTable kBlockTradeAmountCategories{{{{TypeSource::Center, 100003}, "STOCK"},
                                                        {{TypeSource::Center, 100016}, "LOAN"},
                                                        {{TypeSource::Center, 100004}, "FUND"},
                                                        {{TypeSource::Center, 100013}, "FUND"}},
                                                       "STOCK"};

inline const CategoryTable kStockRateCategories{{{{TypeSource::Base, 1154}, "LONDONCDR"},
                                                 {{TypeSource::Base, 1124}, "INNOVATION"},
                                                 {{TypeSource::Base, 1136}, "CDR"},
                                                 {{TypeSource::Center, 100003}, "STOCK"},
                                                 {{TypeSource::Center, 100016}, "LOAN"},
                                                 {{TypeSource::Center, 100103}, "PIF"},
                                                 {{TypeSource::Center, 100004}, "FUND"},
                                                 {{TypeSource::Center, 100013}, "ETF"},
                                                 {{TypeSource::Center, 126}, "REPURCHASE"},
                                                 {{TypeSource::Center, 100017}, "REPURCHASE"}},
                                                "DEF"};

inline const CategoryTable kShanghaiConnectRateCategories{{{{TypeSource::Center, 100016}, "LOAN"}}, "DEF"};

// --- the words of instruments on the installed platform; markets and codes in upper case

inline bool hasType(const InstrumentType& type, const std::string& market, const std::string& code) {
    if (type.source == TypeSource::Base) return ttservice::isTypedStock(type.number, market, code, std::string());
    return StockTypeCenter::instance().isTypedStock(type.number, market, code);
}

inline std::string slowCategory(const CategoryTable& table, const std::string& market, const std::string& code) {
    for (const CategoryRule& rule : table.rules) {
        if (hasType(rule.type, market, code)) return rule.word;
    }
    return table.otherwise;
}

inline std::string slowShanghaiConnectRateCategory(const std::string& market, const std::string& code) {
    if (market == "HGT" || market == "SSEHKEX") return "STOCK";
    return slowCategory(kShanghaiConnectRateCategories, market, code);
}

// Order limits also have words for the connect markets, which come after the boards and before the other types, and
// they distinguish some words by price type and by finer types.
inline std::string slowOrderLimitCategory(const std::string& market, const std::string& code, int priceType) {
    static const std::set<std::string> kConnects{"HGT", "SSEHKEX", "SGT", "SZSEHKEX"};
    static const std::set<int> kMarketPrices{84,  85,  86,  87,  88,  89,  130, 131, 132,
                                             133, 134, 135, 136, 137, 140, 141, 142};
    std::string word = slowCategory(kOrderLimitCategories, market, code);
    if (word != "IPO" && word != "TECHSTOCKMARKET" && kConnects.count(market) > 0) return "STOCK";
    if (word == "TECHSTOCKMARKET" && priceType == 50) return "TECHSTOCKLIMIT";
    if (word == "TECHSTOCKMARKET" && priceType == 117) return "TECHSTOCKCLOSE";
    if (word == "REPURCHASE" && hasType({TypeSource::Center, 100021}, market, code)) return "REPURCHASEIMPAWN";
    if (word == "REPURCHASE" && hasType({TypeSource::Center, 124}, market, code)) return "REPURCHASEBUYOUT";
    if (word == "DEF" && (market == "SHO" || market == "SZO"))
        return kMarketPrices.count(priceType) > 0 ? "MARKET" : "LIMIT";
    return word;
}

}  // namespace tests
