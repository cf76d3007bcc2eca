// Exchange rate limits: answers an instrument's rate parameters, for the exchanges and for both connect markets.
// Entry points: getRateLimitPtr, getHGTExchangeRateLimitPtr, getSgtExchangeRateLimitPtr; reader readRateConfig.
// Owns: RateLimitState.
// Covered by tests/config/ratelimits_test.cpp.

#include <ttplatform/configuration.h>
#include <ttplatform/ratelimitrecords.h>
#include <ttplatform/text.h>
#include <utility>

#include <boost/make_shared.hpp>

#include "logging/guardedlog.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/keys/keyreading.h"
#include "traderbase/base/config/internal/limits/limittables.h"
#include "traderbase/base/config/internal/states/ratelimitstate.h"
#include "traderbase/base/config/internal/states/storestate.h"

namespace ttservice {

namespace {

template <typename Record>
using RateTable = internal::MarketItemTable<boost::shared_ptr<Record>>;

void readFields(const internal::LimitFieldTexts& fields, CStkExchangeRateLimit& record) {
    internal::readLimitFields<internal::kStockRateRow>(fields, record.rate1, record.rate2, record.rate3, record.rate4,
                                                       record.rate5, record.rate6, record.count);
}

template <typename ConnectRecord>
void readFields(const internal::LimitFieldTexts& fields, ConnectRecord& record) {
    internal::readLimitFields<internal::kConnectRateRow>(
        fields, record.rate1, record.rate2, record.rate3, record.rate4, record.rate5, record.rate6, record.rate7,
        record.rate8, record.rate9, record.rate10, record.rate11, record.rate12, record.rate13, record.rate14);
}

void logItem(const internal::LimitItem& item, std::string_view family, const IData& record) {
    internal::writeIfPossible([&] {
        if (!internal::debugWanted(internal::kRateLimitChannel)) return;  // before formatting the record
        internal::logDebug(internal::kRateLimitChannel, "[readRateConfig], market = {0}, stockCode = {1}, {2} = {3}",
                           item.market, item.item, family, record.toLog());
    });
}

// Fills one table. All items of a row share one record.
template <typename Record>
void readTable(const utils::Configuration& configuration, const internal::LimitTableSpec& spec,
               RateTable<Record>& table) {
    RateTable<Record> fresh;
    internal::forEachLimitRow(spec, internal::ConfigurationRows(configuration), [&fresh](const auto& row) {
        internal::logDebug(internal::kRateLimitChannel, "tmpTS.size = {0}", row.foundFields);
        if (!row.counts()) return;
        const auto record = boost::make_shared<Record>();
        readFields(row.fields, *record);
        row.forEachItem([&](const internal::LimitItem& item) {
            fresh[tableKey(item)] = record;
            logItem(item, row.section.section, *record);
        });
    });
    table.swap(fresh);
}

// The record of the code or of its category. If there is none, inserts one deliberately: the same record is returned
// until the next load.
template <const internal::LimitQuestionSpec& Question, typename Record>
boost::shared_ptr<Record> findOrMake(RateTable<Record>& table, std::string market, std::string code) {
    market = utils::toUpper(std::move(market));
    code = utils::toUpper(std::move(code));
    if (const std::string_view other = internal::marketLookedFor(Question, market); other != market) market = other;
    const auto found = internal::findLimit<Question>(table, market, code);
    if (found.value != nullptr) return *found.value;
    return table.emplace(internal::MarketItem(market, found.category), boost::make_shared<Record>()).first->second;
}

}  // namespace

void internal::readRateConfig(const utils::Configuration& configuration, RateLimitState& state) {
    readTable(configuration, kStockRateTable, state.stocks);
    readTable(configuration, kShanghaiConnectRateTable, state.shanghaiConnect);
    readTable(configuration, kShenzhenConnectRateTable, state.shenzhenConnect);
}

boost::shared_ptr<CStkExchangeRateLimit> ConfigCollector::getRateLimitPtr(std::string market, std::string code) {
    return findOrMake<internal::kStockRateQuestion>(state->rates->stocks, std::move(market), std::move(code));
}

boost::shared_ptr<CCustomHGTExchangeRateLimit> ConfigCollector::getHGTExchangeRateLimitPtr(std::string market,
                                                                                           std::string code) {
    return findOrMake<internal::kShanghaiConnectRateQuestion>(state->rates->shanghaiConnect, std::move(market),
                                                              std::move(code));
}

boost::shared_ptr<CCustomSgtExchangeRateLimit> ConfigCollector::getSgtExchangeRateLimitPtr(std::string market,
                                                                                           std::string code) {
    return findOrMake<internal::kShenzhenConnectRateQuestion>(state->rates->shenzhenConnect, std::move(market),
                                                              std::move(code));
}

}  // namespace ttservice
