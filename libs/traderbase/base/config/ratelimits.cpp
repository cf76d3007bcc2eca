// Exchange rate limits: answers the rate parameters of an instrument, for exchanges and for the two connects.
// Doors: getRateLimitPtr, getHGTExchangeRateLimitPtr, getSgtExchangeRateLimitPtr; reader readRateConfig.
// Owns: stockRates, shanghaiConnectRates, shenzhenConnectRates.
// Covered by tests/config/ratelimits_test.cpp.

#include <ttplatform/configuration.h>
#include <ttplatform/ratelimitrecords.h>
#include <ttplatform/text.h>
#include <utility>

#include <boost/make_shared.hpp>

#include "logging/guardedlog.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "traderbase/base/config/internal/words/markets.h"

namespace ttservice {

namespace {

template <typename Record>
using RateTable = internal::MarketItemTable<boost::shared_ptr<Record>>;

void fill(CStkExchangeRateLimit& record, const internal::LimitFields<decltype(internal::kStockRateRow)>& fields) {
    record.rate1 = internal::looseDouble(fields[0]);
    record.rate2 = internal::looseDouble(fields[1]);
    record.rate3 = internal::looseDouble(fields[2]);
    record.rate4 = internal::looseDouble(fields[3]);
    record.rate5 = internal::looseDouble(fields[4]);
    record.rate6 = internal::looseDouble(fields[5]);
    record.count = internal::looseInt(fields[6]);
}

template <typename ConnectRecord>
void fill(ConnectRecord& record, const internal::LimitFields<decltype(internal::kConnectRateRow)>& fields) {
    record.rate1 = internal::looseDouble(fields[0]);
    record.rate2 = internal::looseDouble(fields[1]);
    record.rate3 = internal::looseDouble(fields[2]);
    record.rate4 = internal::looseDouble(fields[3]);
    record.rate5 = internal::looseDouble(fields[4]);
    record.rate6 = internal::looseDouble(fields[5]);
    record.rate7 = internal::looseDouble(fields[6]);
    record.rate8 = internal::looseDouble(fields[7]);
    record.rate9 = internal::looseDouble(fields[8]);
    record.rate10 = internal::looseDouble(fields[9]);
    record.rate11 = internal::looseDouble(fields[10]);
    record.rate12 = internal::looseDouble(fields[11]);
    record.rate13 = internal::looseDouble(fields[12]);
    record.rate14 = internal::looseDouble(fields[13]);
}

void logItem(const internal::LimitItem& item, std::string_view family, const IData& record) {
    internal::writeIfPossible([&] {
        if (!internal::debugWanted(internal::kRateLimitChannel)) return;  // before the record is turned into text
        internal::logDebug(internal::kRateLimitChannel, "[readRateConfig], market = {0}, stockCode = {1}, {2} = {3}",
                           item.market, item.item, family, record.toLog());
    });
}

// Fills one table from its section, which is called after the family. All items of a row share one record.
template <typename Shape, typename Record>
void readFamily(const utils::Configuration& configuration, const internal::SettingKey& row, const Shape& /*shape*/,
                RateTable<Record>& table) {
    RateTable<Record> fresh;
    const std::string section(row.section);
    for (const std::string& key : configuration.getProperties(section)) {
        const std::string value = configuration.read(section, key);
        internal::logDebug(internal::kRateLimitChannel, "tmpTS.size = {0}", internal::fieldCount(value));
        internal::LimitFields<Shape> fields;
        if (!internal::piecesExactly(value, ',', fields)) continue;
        const auto record = boost::make_shared<Record>();
        fill(*record, fields);
        internal::forEachLimitItem(key, [&](const internal::LimitItem& item) {
            fresh[tableKey(item)] = record;
            logItem(item, row.section, *record);
        });
    }
    table.swap(fresh);
}

// The row of (market, category). The one that this makes when there is none is meant: the same record answers until the
// next load.
template <typename Record>
boost::shared_ptr<Record> findOrMake(RateTable<Record>& table, const std::string& market, std::string_view category) {
    if (const auto* record = internal::findRow(table, market, category)) return *record;
    return table.emplace(internal::MarketItem(market, category), boost::make_shared<Record>()).first->second;
}

}  // namespace

void ConfigCollector::readRateConfig(const ConfigurationPtr& configuration) {
    readFamily(*configuration, internal::keys::stockRates, internal::kStockRateRow, stockRates);
    readFamily(*configuration, internal::keys::connectShanghaiRates, internal::kConnectRateRow, shanghaiConnectRates);
    readFamily(*configuration, internal::keys::connectShenzhenRates, internal::kConnectRateRow, shenzhenConnectRates);
}

boost::shared_ptr<CStkExchangeRateLimit> ConfigCollector::getRateLimitPtr(std::string market, std::string code) {
    market = utils::toUpper(std::move(market));
    code = utils::toUpper(std::move(code));
    if (const auto* record = internal::findRow(stockRates, market, code)) return *record;
    return findOrMake(stockRates, market, internal::stockRateCategory(market, code).word);
}

boost::shared_ptr<CCustomHGTExchangeRateLimit> ConfigCollector::getHGTExchangeRateLimitPtr(std::string market,
                                                                                           std::string code) {
    market = utils::toUpper(std::move(market));
    if (market == internal::markets::kHk) market = internal::markets::kHgt;
    code = utils::toUpper(std::move(code));
    if (const auto* record = internal::findRow(shanghaiConnectRates, market, code)) return *record;
    return findOrMake(shanghaiConnectRates, market, internal::shanghaiConnectRateCategory(market, code).word);
}

boost::shared_ptr<CCustomSgtExchangeRateLimit> ConfigCollector::getSgtExchangeRateLimitPtr(std::string market,
                                                                                           std::string code) {
    market = utils::toUpper(std::move(market));
    if (market == internal::markets::kHk) market = internal::markets::kSgt;
    code = utils::toUpper(std::move(code));
    if (const auto* record = internal::findRow(shenzhenConnectRates, market, code)) return *record;
    return findOrMake(shenzhenConnectRates, market, internal::shenzhenConnectRateCategory().word);
}

}  // namespace ttservice
