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

// The numbers of a rate record. Records with the same row are one object to who asks for them.
struct SlowRates {
    int row = 0;
    std::vector<double> numbers;
};

template <typename Value>
using SlowMarketItems = std::map<std::pair<std::string, std::string>, Value>;

// What a store holds after one load and after several, slow and in plain words. Some tables are replaced by a load,
// some are added to, and some keep what a text does not say anew.
class SlowStore {
public:
    void load(const std::string& bytes);

    // What the last text says; empty without the key.
    std::string value(const ttservice::internal::SettingKey& key) const;

    // Answers that may leave a row behind, as the store's do.
    SlowVolume orderLimit(const std::string& market, const std::string& code, int priceType);
    SlowRates stockRates(const std::string& market, const std::string& code);
    SlowRates shanghaiConnectRates(const std::string& market, const std::string& code);
    SlowRates shenzhenConnectRates(const std::string& market, const std::string& code);

    SlowVolume blockTradeQuantity(const std::string& market, const std::string& code) const;
    int blockTradeAmount(const std::string& market, const std::string& code) const;
    bool usesSloBalanceFirst(int platform, const std::string& market, const std::string& code) const;
    std::string singleMarginProduct(const std::string& product) const;

    // Merged: keys and rows that a text does not have stay from the loads before.
    std::map<std::string, std::vector<int>> switches;
    std::map<int, std::vector<double>> fixedIncome;  // by bond trade type
    tests::SlowMarketCodes fixedPriceFunds;
    tests::SlowCombinations combinations;
    tests::SlowContracts contracts;
    tests::SlowTag etfClient;

    // Replaced, but for a default that a text does not give.
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
    int rows = 0;  // of rates, made so far
};

}  // namespace fuzz
