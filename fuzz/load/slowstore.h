#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/slowcatalogues.h"
#include "tests/support/slowgrammars.h"
#include "tests/support/slowsettings.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"

namespace fuzz {

// A limit and its unit word.
using SlowVolume = std::pair<int, std::string>;

// The numbers of a rate record. Instruments with the same row share one record object.
struct SlowRates {
    int row = 0;
    std::vector<double> numbers;
};

template <typename Value>
using SlowMarketItems = std::map<std::pair<std::string, std::string>, Value>;

// A slow, obvious model of the store after one or more loads. A load replaces some tables and adds to others; in the
// rest it changes only what the new file mentions.
class SlowStore {
public:
    void load(const std::string& bytes);

    // The value in the last text; empty if the key is missing.
    std::string value(const ttservice::internal::SettingKey& key) const;

    // Queries that may insert a row, as the store's do.
    SlowVolume orderLimit(const std::string& market, const std::string& code, int priceType);
    SlowRates stockRates(const std::string& market, const std::string& code);
    SlowRates shanghaiConnectRates(const std::string& market, const std::string& code);
    SlowRates shenzhenConnectRates(const std::string& market, const std::string& code);

    SlowVolume blockTradeQuantity(const std::string& market, const std::string& code) const;
    int blockTradeAmount(const std::string& market, const std::string& code) const;
    bool usesSloBalanceFirst(int platform, const std::string& market, const std::string& code) const;
    std::string singleMarginProduct(const std::string& product) const;

    // Merged: keys and rows that the new text lacks stay from earlier loads.
    std::map<std::string, std::vector<int>> switches;
    std::map<int, std::vector<double>> fixedIncome;  // by bond trade type
    tests::SlowMarketCodes fixedPriceFunds;
    tests::SlowCombinations combinations;
    tests::SlowContracts contracts;
    tests::SlowTag etfClient;

    // Replaced, except for a default that the new text does not give.
    tests::SlowPerPlatform<bool> t0ForReturnStock{};
    tests::SlowPerPlatform<bool> spxCredit{};
    tests::SlowPerPlatform<bool> mainAccount{};
    tests::SlowPerPlatform<bool> checkAssure{};
    tests::SlowPerPlatform<int> renewal{};
    tests::SlowPerPlatform<int> counterMaxCompacts{};
    tests::SlowPerPlatform<int> counterIpwan{};
    tests::SlowPerPlatform<double> setAvailable{};
    tests::SlowPerPlatform<double> specialRate{};

    // Replaced.
    std::map<int, std::pair<double, double>> concentration;
    std::map<int, std::set<std::string>> collateralSale;
    std::map<std::string, double> bonds;
    std::map<std::string, double> fees;
    std::vector<std::string> httpProducts;
    std::vector<std::pair<std::string, std::string>> t0Strategies;
    std::set<std::string> algorithmTypes;
    std::set<std::string> buySellHideTypes;

private:
    using Entries = std::vector<std::pair<std::string, std::string>>;
    using RateTable = SlowMarketItems<SlowRates>;

    Entries entriesOf(std::string_view section) const;
    void readValuesByPlatform();
    void readLimits();
    void readRates(const ttservice::internal::SettingKey& key, const std::string& letters, RateTable& table);
    void readBonds();
    void readCredit();
    void readFunds();
    void readCatalogues();
    SlowRates ratesOf(RateTable& table, const std::string& market, const std::string& code, const std::string& category,
                      std::size_t count);

    tests::Sections text;
    SlowMarketItems<SlowVolume> orderLimits;
    SlowMarketItems<SlowVolume> blockTradeQuantities;
    SlowMarketItems<int> blockTradeAmounts;
    RateTable stockTable;
    RateTable shanghaiTable;
    RateTable shenzhenTable;
    std::map<int, std::vector<std::string>> sloBalanceFirst;
    int rows = 0;  // number of rate rows created so far
};

}  // namespace fuzz
