// The slow store of the target "load": how loads fill its tables.

#include "fuzz/load/slowstore.h"

#include <ttplatform/stocktypecenter.h>

#include <optional>
#include <string_view>

#include "tests/support/slowcategories.h"

namespace fuzz {

namespace {

using ttservice::internal::SettingKey;
namespace keys = ttservice::internal::keys;

constexpr int kWithoutRow = 1000000;
const std::string kShareWord = "\xE8\x82\xA1";

using Place = std::pair<std::string, std::string>;

std::vector<Place> placesOf(const std::string& key) {
    std::vector<Place> places;
    for (const tests::SlowLimitItem& item : tests::slowLimitKey(key))
        places.emplace_back(tests::slowUpperCase(item.market), tests::slowUpperCase(item.item));
    return places;
}

// Enters a row of one number under the key as written and in upper case; an existing row wins.
void enterNumber(const std::string& key, double number, std::map<std::string, double>& table) {
    table.insert({key, number});
    table.insert({tests::slowUpperCase(key), number});
}

std::set<std::string> setOfPieces(const std::string& value, char separator) {
    if (value.empty()) return {};
    const std::vector<std::string> pieces = tests::slowPieces(value, separator);
    return {pieces.begin(), pieces.end()};
}

template <typename Value>
void readTable(const std::string& value, Value builtIn, bool squeeze, tests::SlowPerPlatform<Value>& table) {
    table = tests::slowPerPlatformList<Value>(value, builtIn, table.fallback, squeeze);
}

}  // namespace

// --- loads

void SlowStore::load(const std::string& bytes) {
    text = tests::slowlyRead(bytes);
    for (const auto& [key, value] : entriesOf("setting"))
        switches[key] = tests::slowPlatformList(value).ids;
    readValuesByPlatform();
    readLimits();
    readRates(keys::stockRates, tests::kSlowStockRate, stockTable);
    readRates(keys::connectShanghaiRates, tests::kSlowConnectRate, shanghaiTable);
    readRates(keys::connectShenzhenRates, tests::kSlowConnectRate, shenzhenTable);
    readBonds();
    readCredit();
    readFunds();
    readCatalogues();
}

SlowStore::Entries SlowStore::entriesOf(std::string_view section) const {
    for (const tests::Section& candidate : text) {
        if (candidate.name == section) return candidate.entries;
    }
    return {};
}

std::string SlowStore::value(const SettingKey& key) const {
    for (const auto& [name, value] : entriesOf(key.section)) {
        if (name == key.key) return value;
    }
    return {};
}

void SlowStore::readValuesByPlatform() {
    readTable(value(keys::t0ForReturnStock), true, true, t0ForReturnStock);
    readTable(value(keys::spxCredit), false, true, spxCredit);
    readTable(value(keys::mainAccountCalcCompactsByDeal), true, true, mainAccount);
    readTable(value(keys::renewal), 0, true, renewal);
    readTable(value(keys::counterMaxCompacts), 500, true, counterMaxCompacts);
    readTable(value(keys::counterIpwanPos), 1, true, counterIpwan);
    readTable(value(keys::needCheckAssureEnbuyBalance), false, false, checkAssure);
    readTable(value(keys::specialEnableVolRate), 0.0, false, specialRate);
    readTable(value(keys::setAvailable), 0.0, false, setAvailable);
}

void SlowStore::readLimits() {
    orderLimits.clear();
    for (const char* section : {"StkExchangeOrderLimit", "HGTExchangeOrderLimit", "SgtExchangeOrderLimit"}) {
        for (const auto& [key, value] : entriesOf(section)) {
            const auto row = tests::slowRow(value, tests::kSlowOrderLimit);
            if (!row) continue;
            for (const Place& place : placesOf(key))
                orderLimits[place] = {static_cast<int>(row->numbers[0]), row->texts[0]};
        }
    }
    blockTradeQuantities.clear();
    blockTradeAmounts.clear();
    for (const auto& [key, value] : entriesOf("StkExchangeDazongOrderLimit")) {
        const auto row = tests::slowRow(value, tests::kSlowBlockTradeLimit);
        if (!row) continue;
        for (const Place& place : placesOf(key)) {
            blockTradeQuantities[place] = {static_cast<int>(row->numbers[0]), row->texts[0]};
            blockTradeAmounts[place] = static_cast<int>(row->numbers[1]);
        }
    }
}

void SlowStore::readRates(const SettingKey& key, const std::string& letters, RateTable& table) {
    table.clear();
    for (const auto& [name, value] : entriesOf(key.section)) {
        const auto row = tests::slowRow(value, letters);
        if (!row) continue;
        ++rows;
        for (const Place& place : placesOf(name))
            table[place] = {rows, row->numbers};
    }
}

void SlowStore::readBonds() {
    const std::vector<std::pair<const SettingKey*, int>> types = {
        {&keys::shFixIncome, 2}, {&keys::shLoanClickDeal, 3}, {&keys::shLoanEnquiryDeal, 4}, {&keys::shLoanBidDeal, 5}};
    for (const auto& [key, type] : types) {
        if (const auto row = tests::slowRow(value(*key), tests::kSlowFixedIncome)) fixedIncome[type] = row->numbers;
    }
    bonds.clear();
    for (const auto& [code, value] : entriesOf("StandardBondUseLimit"))
        enterNumber(code, tests::slowStrictNumber<double>(value).value_or(1.0), bonds);
}

void SlowStore::readCredit() {
    concentration.clear();
    for (const tests::SlowCreditEntry& entry : tests::slowCreditList(value(keys::concentrationRatio))) {
        if (entry.fields.size() < 2) continue;
        concentration[entry.platform] = {tests::slowLooseDouble(entry.fields[0]),
                                         tests::slowLooseDouble(entry.fields[1])};
    }
    collateralSale.clear();
    for (const tests::SlowCreditEntry& entry : tests::slowCreditList(value(keys::collateralSaleRepay))) {
        for (const std::string& code : tests::slowPiecesWithSomething(entry.payload, ','))
            collateralSale[entry.platform].insert(code);
    }
}

void SlowStore::readFunds() {
    sloBalanceFirst.clear();
    for (const auto& [key, value] : entriesOf("monetaryFundUseSloBalanceFirst"))
        sloBalanceFirst[tests::slowLooseInt(key)] = tests::slowPieces(value, ',');
    const std::string codes = value(keys::fixedPriceFunds);
    if (!codes.empty()) tests::slowEnterMarketCodes(codes, fixedPriceFunds);
}

void SlowStore::readCatalogues() {
    fees.clear();
    for (const auto& [product, value] : entriesOf("FUTURE_SUBSCRIBE_PRODUCTS"))
        enterNumber(product, tests::slowStrictNumber<double>(value).value_or(0.0), fees);
    for (const auto& [exchange, value] : entriesOf("specialCombCompacts"))
        tests::slowEnterCombinations(value, combinations);
    tests::slowEnterContracts(value(keys::contracts), contracts);
    tests::slowEnterContractTypes(value(keys::contractTypes), contracts);
    httpProducts = tests::slowPiecesWithSomething(value(keys::httpProductIds), ',');
    t0Strategies = tests::slowPairs(value(keys::t0Strategies));
    algorithmTypes = setOfPieces(value(keys::algoTypes), ';');
    buySellHideTypes = setOfPieces(value(keys::buySellHideAlgoTypes), ',');
    if (const auto tag = tests::slowTag(value(keys::etfBrokerClient))) etfClient = *tag;
}

// --- answers

SlowVolume SlowStore::orderLimit(const std::string& market, const std::string& code, int priceType) {
    const Place own(tests::slowUpperCase(market), tests::slowUpperCase(code));
    if (orderLimits.count(own) > 0) return orderLimits[own];
    const Place category(own.first, tests::slowOrderLimitCategory(own.first, own.second, priceType));
    // From now on, the category has a row.
    return orderLimits.insert({category, {kWithoutRow, kShareWord}}).first->second;
}

SlowVolume SlowStore::blockTradeQuantity(const std::string& market, const std::string& code) const {
    const std::string upperMarket = tests::slowUpperCase(market);
    const auto found =
        blockTradeQuantities.find({upperMarket, tests::slowCategory(tests::kBlockTradeQuantityCategories, upperMarket,
                                                                    tests::slowUpperCase(code))});
    return found == blockTradeQuantities.end() ? SlowVolume(kWithoutRow, kShareWord) : found->second;
}

int SlowStore::blockTradeAmount(const std::string& market, const std::string& code) const {
    const std::string upperMarket = tests::slowUpperCase(market);
    const auto found =
        blockTradeAmounts.find({upperMarket, tests::slowCategory(tests::kBlockTradeAmountCategories, upperMarket,
                                                                 tests::slowUpperCase(code))});
    return found == blockTradeAmounts.end() ? kWithoutRow : found->second;
}

SlowRates SlowStore::ratesOf(RateTable& table, const std::string& market, const std::string& code,
                             const std::string& category, std::size_t count) {
    if (table.count({market, code}) > 0) return table[{market, code}];
    if (table.count({market, category}) == 0) table[{market, category}] = {++rows, std::vector<double>(count, 0.0)};
    return table[{market, category}];
}

SlowRates SlowStore::stockRates(const std::string& market, const std::string& code) {
    const Place own(tests::slowUpperCase(market), tests::slowUpperCase(code));
    const std::string category = tests::slowCategory(tests::kStockRateCategories, own.first, own.second);
    return ratesOf(stockTable, own.first, own.second, category, tests::kSlowStockRate.size());
}

SlowRates SlowStore::shanghaiConnectRates(const std::string& market, const std::string& code) {
    Place own(tests::slowUpperCase(market), tests::slowUpperCase(code));
    if (own.first == "HK") own.first = "HGT";
    const std::string category = tests::slowShanghaiConnectRateCategory(own.first, own.second);
    return ratesOf(shanghaiTable, own.first, own.second, category, tests::kSlowConnectRate.size());
}

SlowRates SlowStore::shenzhenConnectRates(const std::string& market, const std::string& code) {
    Place own(tests::slowUpperCase(market), tests::slowUpperCase(code));
    if (own.first == "HK") own.first = "SGT";
    return ratesOf(shenzhenTable, own.first, own.second, "STOCK", tests::kSlowConnectRate.size());
}

bool SlowStore::usesSloBalanceFirst(int platform, const std::string& market, const std::string& code) const {
    const auto found = sloBalanceFirst.find(platform);
    if (found == sloBalanceFirst.end()) return false;
    const std::vector<std::string>& funds = found->second;
    if (tests::slowListsFund(funds, market + code)) return true;
    return funds == std::vector<std::string>{"ALL"} &&
           tests::hasType({tests::TypeSource::Center, 100024}, market, code);
}

std::string SlowStore::singleMarginProduct(const std::string& product) const {
    const auto found = combinations.firstOfGroup.find(product);
    return found == combinations.firstOfGroup.end() ? product : found->second;
}

}  // namespace fuzz
