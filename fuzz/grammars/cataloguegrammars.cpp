// Product catalogue entries of the target "grammars": what each entry means, and what a value does to the tables. Each
// value is entered twice, as when one load follows another.

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <boost/algorithm/string/join.hpp>

#include "fuzz/grammars/grammarchecks.h"
#include "fuzz/support/recordnumbers.h"
#include "fuzz/support/target.h"
#include "tests/support/slowcatalogues.h"
#include "tests/support/slowgrammars.h"
#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/products/contractcatalogue.h"
#include "traderbase/base/config/internal/products/producttables.h"
#include "traderbase/base/config/internal/text/splitting.h"

namespace fuzz {

using namespace ttservice::internal;

namespace {

constexpr std::size_t kMostFunds = 16;

// The entries of a value in reverse order: a different value about the same products.
std::string backwards(const std::string& text) {
    std::vector<std::string> entries = tests::slowPieces(text, ';');
    std::reverse(entries.begin(), entries.end());
    return boost::algorithm::join(entries, ";");
}

void requireEntry(const ContractEntry& entry) {
    const std::string text(entry.text);
    const auto pair = tests::slowPair(text);
    require(isStored(entry.outcome) == (!text.empty() && pair.has_value()), "contracts agree on what is one", text);
    if (!isStored(entry.outcome)) return;
    require(entry.productId == (*pair)[0], "contracts agree on the product", text);
    const auto fields = tests::slowContractFields((*pair)[1]);
    require((entry.outcome == EntryOutcome::Stored) == fields.has_value(), "a contract has five fields", text);
    for (std::size_t i = 0; i < entry.fields.size(); ++i)
        require(entry.fields[i] == (fields ? (*fields)[i] : std::string()), "contract fields agree", text);
}

void requireSameRecords(const ContractCatalogue& catalogue, const tests::SlowContracts& slow, const std::string& text) {
    require(catalogue.records.size() == slow.records.size(), "as many contracts", text);
    for (const auto& [key, expected] : slow.records) {
        const auto found = catalogue.records.find(key);
        require(found != catalogue.records.end() && found->second, "contracts agree on their keys", text);
        require(isSameContract(*found->second, expected), "contracts agree", text);
    }
}

// A catalogue with records for some of the products in the text, in turn: none, one for stock accounts, one for credit
// accounts, and both.
std::string contractsFor(const std::string& types) {
    std::string contracts;
    int turn = 0;
    for (const std::string& entry : tests::slowPieces(types, ';')) {
        const std::string product = entry.substr(0, entry.find(':'));
        if (turn % 4 == 1 || turn % 4 == 3) contracts += product + ":x,1,2,3,0;";
        if (turn % 4 == 2 || turn % 4 == 3) contracts += product + ":x,1,2,3,1;";
        ++turn;
    }
    return contracts;
}

void requireSameCombinations(const CombinationTables& tables, const tests::SlowCombinations& slow,
                             const std::string& text) {
    require(tables.groups == slow.groups, "groups of combinations agree", text);
    require(tables.products == slow.products, "products of combinations agree", text);
    require(tables.firstOfGroup == slow.firstOfGroup, "first products of combinations agree", text);
}

}  // namespace

void checkProductGroups(const std::string& text) {
    std::vector<std::vector<std::string_view>> groups;
    forEachEntry(kCombinations, text, [&groups](const GroupEntry& entry) {
        groups.emplace_back();
        forEachProductOf(entry, [&groups](std::string_view product) { groups.back().push_back(product); });
        for (const std::string_view& product : groups.back())
            require(isFirstOf(entry, product) == (&product == &groups.back().front()), "first products agree",
                    std::string(entry.text));
    });
    const std::vector<std::string> slow = tests::slowPieces(text, ';');
    require(groups.size() == slow.size(), "as many groups of products", text);
    for (std::size_t i = 0; i < groups.size(); ++i) {
        require(std::vector<std::string>(groups[i].begin(), groups[i].end()) == tests::slowPieces(slow[i], ','),
                "groups of products agree", text);
        for (const std::string_view product : groups[i])
            require(isWithin(product, text), "products are views", text);
    }
    CombinationTables tables;
    tests::SlowCombinations slowTables;
    for (const std::string& value : {text, backwards(text), text}) {
        enterCombinations(value, tables);
        tests::slowEnterCombinations(value, slowTables);
        requireSameCombinations(tables, slowTables, text);
    }
}

void checkMarketCodes(const std::string& text) {
    forEachEntry(kFixedPriceFunds, text, [&text](const MarketCodesEntry& entry) {
        const std::string piece(entry.text);
        const std::size_t colon = piece.find(':');
        const bool isBoth = colon == std::string::npos;
        require(isWithin(entry.text, text) && isStored(entry.outcome), "every piece is a market", piece);
        require((entry.outcome == EntryOutcome::MarketIsCodes) == isBoth, "markets agree on what is both", piece);
        require(entry.market == piece.substr(0, colon), "markets of code lists agree", piece);
        require(entry.codes == (isBoth ? piece : piece.substr(colon + 1)), "codes of code lists agree", piece);
    });
    tests::SlowMarketCodes table;
    tests::SlowMarketCodes slow;
    for (const std::string& value : {text, backwards(text), std::string("SH:600000")}) {
        enterMarketCodes(value, table);
        tests::slowEnterMarketCodes(value, slow);
        require(table == slow, "codes by market agree", text);
    }
}

void checkFunds(const std::string& text) {
    const std::vector<std::string> list = fundList(text);
    require(list == tests::slowPieces(text, ','), "lists of funds agree", text);
    require(listsAllFunds(list) == (text == "ALL"), "all funds are meant by one word alone", text);
    const std::vector<std::string> slow = tests::slowPieces(text, ',');
    std::size_t asked = 0;
    for (const std::string& entry : slow) {
        if (++asked > kMostFunds) break;
        // The split between market and code may be anywhere. An appended character usually makes it a different fund.
        for (const std::string& fund : {entry, entry + "1"}) {
            for (const std::size_t end : {std::size_t{0}, entry.size() / 2, fund.size()}) {
                require(listsFund(list, fund.substr(0, end), fund.substr(end)) == tests::slowListsFund(slow, fund),
                        "funds agree", text);
            }
        }
    }
}

void checkContracts(const std::string& text) {
    std::size_t entries = 0;
    forEachEntry(kContracts, text, [&](const ContractEntry& entry) {
        require(isWithin(entry.text, text), "catalogue entries are views", text);
        requireEntry(entry);
        ++entries;
    });
    require(entries == tests::slowPieces(text, ';').size(), "as many catalogue entries", text);
    ContractCatalogue catalogue;
    tests::SlowContracts slow;
    for (const std::string& value : {text, backwards(text), std::string("P1:x,1,2,3,1")}) {
        enterContracts(value, catalogue);
        tests::slowEnterContracts(value, slow);
        requireSameRecords(catalogue, slow, text);
    }
}

void checkContractTypes(const std::string& text) {
    ContractCatalogue catalogue;
    tests::SlowContracts slow;
    const std::string contracts = contractsFor(text);
    enterContracts(contracts, catalogue);
    tests::slowEnterContracts(contracts, slow);
    forEachEntry(kContractTypes, text, [&](const PairEntry& entry) {
        const auto pair = tests::slowPair(std::string(entry.text));
        const bool isKnown =
            pair && (slow.records.count((*pair)[0] + "_stock") > 0 || slow.records.count((*pair)[0] + "_credit") > 0);
        require(isStored(contractTypesOutcome(entry, catalogue)) == isKnown, "outcomes of types agree", text);
    });
    for (const std::string& value : {text, backwards(text)}) {
        enterContractTypes(value, catalogue);
        tests::slowEnterContractTypes(value, slow);
        require(catalogue.stockProductByType == slow.stockProducts, "types of stock accounts agree", text);
        require(catalogue.creditProductByType == slow.creditProducts, "types of credit accounts agree", text);
    }
    requireSameRecords(catalogue, slow, text);
}

void checkPairs(const std::string& text) {
    std::vector<std::pair<std::string, std::string>> stored;
    forEachEntry(kT0Strategies, text, [&](const PairEntry& entry) {
        require(isWithin(entry.text, text), "pairs are views", text);
        require((entry.outcome == EntryOutcome::SkippedEmpty) == entry.text.empty(), "empty pairs are told", text);
        if (isStored(entry.outcome)) stored.emplace_back(entry.first, entry.second);
    });
    require(stored == tests::slowPairs(text), "pairs agree", text);
}

void checkTextsDropEmpty(const std::string& text, char separator) {
    std::vector<std::string> texts;
    splitDropEmpty(text, separator, [&texts](std::string_view piece) { texts.emplace_back(piece); });
    require(texts == tests::slowPiecesWithSomething(text, separator), "lists without empty texts agree", text);
}

void checkTexts(const std::string& text, char separator) {
    std::vector<std::string> texts;
    splitKeepEmpty(text, separator, [&texts](std::string_view piece) { texts.emplace_back(piece); });
    require(texts == tests::slowPieces(text, separator), "lists of texts agree", text);
}

void checkTagAndTimes(const std::string& text) {
    const TagEntry entry = tagEntry(text);
    const auto slow = tests::slowTag(text);
    require(isStored(entry.outcome) == slow.has_value(), "tags agree on what is one", text);
    if (!slow) return;
    require(isWithin(entry.tag, text) && isWithin(entry.times, text), "tags are views", text);
    std::vector<std::string> times;
    splitKeepEmpty(entry.times, ',', [&times](std::string_view time) { times.emplace_back(time); });
    require(entry.tag == slow->tag && times == slow->times, "tags agree", text);
}

}  // namespace fuzz
