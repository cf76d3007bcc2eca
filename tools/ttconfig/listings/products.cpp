// The products: shows the product catalogues that a settings file makes.
// Entry points: runProducts().
// Covered by tests/tools/ttconfig/listings/products_test.cpp.

#include "ttconfig/listings/products.h"

#include <ttplatform/configuration.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/products/producttables.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/settings/quietload.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/tables/entrylists.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/table.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using ttservice::ConfigCollector;
using utils::Configuration;

// The sources of the tables: the store, and the file for what no operation of the store lists. The store's own code
// parses the file.
struct Sources {
    ConfigCollector& store;
    const Configuration& file;
};

template <typename Sequence>
Answer listOf(const Sequence& items) {
    Answer list = Answer::array();
    for (const auto& item : items)
        list.push_back(std::string(item));
    return list;
}

// --- algorithm products

Table contractsTable(const Sources& from) {
    Table table{"contracts",
                "Algorithm products, by account (stock or credit)",
                {"key", "productId", "textValue", "doubleValue", "longValue", "intValue", "isCredit"},
                {}};
    for (const auto& [key, record] : from.store.getAllContractInfo()) {
        table.rows.push_back({key, record->productId, record->textValue, record->doubleValue, record->longValue,
                              record->intValue, record->isCredit});
    }
    return table;
}

void addNew(std::string_view name, std::vector<std::string>& names) {
    if (std::find(names.begin(), names.end(), name) == names.end()) names.emplace_back(name);
}

// Every algorithm type that the file names: first the types of products, in file order.
std::vector<std::string> algorithmTypesOf(const Sources& from) {
    std::vector<std::string> types;
    forEachType(readText(from.file, keys::contractTypes),
                [&types](const PairEntry& /*entry*/, std::string_view type) { addNew(type, types); });
    for (const std::string& type : from.store.getAlgoTypes())
        addNew(type, types);
    for (const std::string& type : from.store.getBuySellHideAlgoTypes())
        addNew(type, types);
    return types;
}

Table algorithmTypesTable(const Sources& from) {
    Table table{"algorithmTypes",
                "Algorithm types, and the products that serve them on stock and credit accounts",
                {"type", "stock", "credit", "smart", "buySellHidden"},
                {}};
    const std::set<std::string> smart = from.store.getAlgoTypes();
    const std::set<std::string> hidden = from.store.getBuySellHideAlgoTypes();
    for (const std::string& type : algorithmTypesOf(from)) {
        table.rows.push_back({type, from.store.getProductIdbyAlgoName(type, false),
                              from.store.getProductIdbyAlgoName(type, true), smart.count(type) > 0,
                              hidden.count(type) > 0});
    }
    return table;
}

Table httpProductsTable(const Sources& from) {
    Table table{"httpProducts", "Products served over HTTP", {"productId"}, {}};
    forEachEntry(kHttpProducts, readText(from.file, keys::httpProductIds),
                 [&table](std::string_view id) { table.rows.push_back({std::string(id)}); });
    return table;
}

Table t0StrategiesTable(const Sources& from) {
    Table table{"t0Strategies", "T0 strategies", {"strategy", "name"}, {}};
    for (const auto& [strategy, name] : from.store.getT0Strategy())
        table.rows.push_back({strategy, name});
    return table;
}

// --- futures and ETF

Table feesTable(const Sources& from) {
    Table table{"subscriptionFees", "Subscription fees, by code as written and in upper case", {"code", "fee"}, {}};
    const std::string section(keys::subscriptionFees.section);
    std::map<std::string, double> fees;
    for (const std::string& product : from.file.getProperties(section))
        enterSubscriptionFee(product, from.file.readDouble(section, product, 0.0), fees);
    for (const auto& [code, fee] : fees)
        table.rows.push_back({code, fee});
    return table;
}

// Groups are numbered across all exchanges. A product in two groups keeps the first product of the earlier one.
Table combinationsTable(const Sources& from) {
    Table table{"combinations",
                "Combinations, and the product that the margin is charged on",
                {"exchange", "group", "product", "chargedOn"},
                {}};
    const std::string section(keys::combinations.section);
    std::size_t number = 0;
    for (const std::string& exchange : from.file.getProperties(section)) {
        const std::string value = from.file.read(section, exchange);
        forEachEntry(kCombinations, value, [&](const GroupEntry& group) {
            ++number;
            forEachProductOf(group, [&](std::string_view product) {
                table.rows.push_back({exchange, number, std::string(product),
                                      from.store.getSingleMarginProductName(std::string(product))});
            });
        });
    }
    return table;
}

Table etfBrokerTable(const Sources& from) {
    Table table{"etfBrokerClient", "ETF broker client", {"tag", "queryTimes"}, {}};
    const std::string tag = from.store.getETFBrokerCLientTag();
    const std::vector<std::string> times = from.store.getETFBrokerCLientQueryTimes();
    if (!tag.empty() || !times.empty()) table.rows.push_back({tag, listOf(times)});
    return table;
}

// --- money-market funds

Table lendingFirstTable(const Sources& from) {
    Table table{"lendingBalanceFirst",
                "Funds paid from the securities lending balance first, by platform",
                {"platform", "allFunds", "funds"},
                {}};
    const std::string section(keys::sloBalanceFirstFunds.section);
    std::map<int, std::vector<std::string>> lists;
    for (const std::string& platform : from.file.getProperties(section))
        lists[looseInt(platform)] = fundList(from.file.read(section, platform));
    for (const auto& [platform, list] : lists)
        table.rows.push_back({platform, listsAllFunds(list), listOf(list)});
    return table;
}

Table fixedPriceTable(const Sources& from) {
    Table table{
        "fixedPriceFunds", "Funds that are not traded and need their price fixed, by market", {"market", "codes"}, {}};
    const std::string value = readText(from.file, keys::fixedPriceFunds);
    std::map<std::string, std::set<std::string>> codesByMarket;
    if (!value.empty()) enterMarketCodes(value, codesByMarket);
    for (const auto& [market, codes] : codesByMarket)
        table.rows.push_back({market, listOf(codes)});
    return table;
}

// --- entries that do not count as written

template <typename Entry>
void addOdd(const SettingKey& row, const Entry& entry, EntryOutcome outcome, Table& table) {
    if (outcome == EntryOutcome::Stored || entry.text.empty()) return;
    table.rows.push_back({std::string(row.key), std::string(entry.text), std::string(describe(outcome))});
}

template <typename Entry>
void addOddEntries(const EntryList<Entry>& list, const Configuration& file, Table& table) {
    forEachEntry(list, readText(file, list.key),
                 [&](const Entry& entry) { addOdd(list.key, entry, entry.outcome, table); });
}

Table oddEntriesTable(const Sources& from) {
    Table table{"oddEntries", "Entries that do not count as they are written", {"key", "entry", "outcome"}, {}};
    addOddEntries(kContracts, from.file, table);
    ContractCatalogue catalogue;
    enterContracts(readText(from.file, keys::contracts), catalogue);
    forEachEntry(kContractTypes, readText(from.file, keys::contractTypes), [&](const PairEntry& entry) {
        addOdd(keys::contractTypes, entry, contractTypesOutcome(entry, catalogue), table);
    });
    addOddEntries(kT0Strategies, from.file, table);
    addOddEntries(kFixedPriceFunds, from.file, table);
    const std::string tag = readText(from.file, keys::etfBrokerClient);
    const TagEntry entry = tagEntry(tag);
    addOdd(keys::etfBrokerClient, entry, entry.outcome, table);
    return table;
}

// --- output

std::vector<Table> productTables(const Sources& from) {
    return {contractsTable(from),  algorithmTypesTable(from), httpProductsTable(from), t0StrategiesTable(from),
            feesTable(from),       combinationsTable(from),   etfBrokerTable(from),    lendingFirstTable(from),
            fixedPriceTable(from), oddEntriesTable(from)};
}

// The title, then the rows under their headings.
std::string textOf(Table table) {
    const std::string title = table.title + '\n';
    if (table.rows.empty()) return title + "none\n";
    table.title.clear();
    return title + tableText(table);
}

}  // namespace

void runProducts(const CommandLine& commandLine, Output& output) {
    {
        const QuietLoad quiet;
        carryOut(commandLine.shared);
    }
    Configuration file;
    if (commandLine.shared.settings) file.parse(*commandLine.shared.settings);
    const std::vector<Table> tables = productTables({*ConfigCollector::instance(), file});
    if (commandLine.format == Format::Json) {
        Answer all = Answer::object();
        for (const Table& table : tables)
            all[table.name] = tableJson(table);
        output.write(answerJson(all) + '\n');
        return;
    }
    if (!commandLine.shared.settings) {
        std::cerr << "ttconfig: no --settings given: these are the products without a settings file\n";
    }
    std::string text;
    for (const Table& table : tables)
        text += (text.empty() ? "" : "\n") + textOf(table);
    output.write(text);
}

}  // namespace ttconfig
