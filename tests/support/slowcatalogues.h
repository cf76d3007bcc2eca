#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/slowgrammars.h"

// What the values of the product catalogues put into their tables, computed in a slow and obvious way.

namespace tests {

// --- algorithm products

struct SlowContract {
    std::string product;
    std::string text;
    double decimal = 0.0;
    long long wide = 0;
    int integer = 0;
    bool isCredit = false;
};

struct SlowContracts {
    std::map<std::string, SlowContract> records;
    std::map<std::string, std::string> stockProducts;  // by algorithm type
    std::map<std::string, std::string> creditProducts;
};

inline void slowEnterContracts(const std::string& value, SlowContracts& contracts) {
    for (const std::string& text : slowPiecesWithSomething(value, ';')) {
        const auto pair = slowPair(text);
        if (!pair) continue;
        SlowContract contract;
        contract.product = (*pair)[0];
        if (const auto fields = slowContractFields((*pair)[1])) {
            contract.text = (*fields)[0];
            contract.decimal = slowLooseDouble((*fields)[1]);
            contract.wide = slowLooseLong((*fields)[2]);
            contract.integer = slowLooseInt((*fields)[3]);
            contract.isCredit = slowLooseInt((*fields)[4]) == 1;
        }
        contracts.records[contract.product + (contract.isCredit ? "_credit" : "_stock")] = contract;
    }
}

inline void slowEnterContractTypes(const std::string& value, SlowContracts& contracts) {
    for (const std::string& text : slowPiecesWithSomething(value, ';')) {
        const auto pair = slowPair(text);
        if (!pair) continue;
        const std::string product = (*pair)[0];
        for (const std::string& type : slowPieces((*pair)[1], '|')) {
            if (contracts.records.count(product + "_credit") > 0) contracts.creditProducts[type] = product;
            if (contracts.records.count(product + "_stock") > 0) contracts.stockProducts[type] = product;
        }
    }
}

// --- combinations that charge the margin once

struct SlowCombinations {
    std::vector<std::set<std::string>> groups;
    std::vector<std::string> products;
    std::map<std::string, std::string> firstOfGroup;
};

inline void slowEnterCombinations(const std::string& value, SlowCombinations& combinations) {
    for (const std::string& group : slowPieces(value, ';')) {
        const std::vector<std::string> products = slowPieces(group, ',');
        combinations.groups.emplace_back(products.begin(), products.end());
        combinations.products.insert(combinations.products.end(), products.begin(), products.end());
        for (std::size_t i = 1; i < products.size(); ++i)
            combinations.firstOfGroup.insert({products[i], products[0]});
    }
}

// --- funds

// A fund is named by its market and its code, joined without a separator.
inline bool slowListsFund(const std::vector<std::string>& list, const std::string& fund) {
    for (const std::string& entry : list) {
        if (entry == fund) return true;
    }
    return false;
}

using SlowMarketCodes = std::map<std::string, std::set<std::string>>;

inline void slowEnterMarketCodes(const std::string& value, SlowMarketCodes& codesByMarket) {
    for (const std::string& text : slowPieces(value, ';')) {
        const std::size_t colon = text.find(':');
        const std::string market = text.substr(0, colon);
        const auto codes = slowPieces(colon == std::string::npos ? text : text.substr(colon + 1), ',');
        codesByMarket[market] = std::set<std::string>(codes.begin(), codes.end());
    }
}

// --- lists of texts

inline std::vector<std::pair<std::string, std::string>> slowPairs(const std::string& value) {
    std::vector<std::pair<std::string, std::string>> pairs;
    for (const std::string& text : slowPiecesWithSomething(value, ';')) {
        if (const auto pair = slowPair(text)) pairs.emplace_back((*pair)[0], (*pair)[1]);
    }
    return pairs;
}

struct SlowTag {
    std::string tag;
    std::vector<std::string> times;
};

// Nothing for a value without a ":".
inline std::optional<SlowTag> slowTag(const std::string& value) {
    const std::vector<std::string> parts = slowPieces(value, ':');
    if (parts.size() < 2) return std::nullopt;
    return SlowTag{parts[0], slowPieces(parts[1], ',')};
}

}  // namespace tests
