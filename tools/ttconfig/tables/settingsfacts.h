#pragma once

#include <standin/settingstext.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ttconfig/tables/cataloguefacts.h"
#include "ttconfig/tables/limittablefacts.h"

namespace ttconfig {

// What a settings text says, each table worked out when it is first asked for and kept from then on. One thread at a
// time.
class SettingsFacts {
public:
    SettingsFacts(const standin::SettingsText& settingsText, std::map<std::string, bool> localOverrides,
                  std::string path)
        : overrides(std::move(localOverrides)), settingsPath(std::move(path)), source(settingsText) {}

    const standin::SettingsText& text() const { return source; }

    const LimitTable& orderLimits() const { return kept(orderLimitRows, orderLimitTable); }
    const LimitTable& blockTrades() const { return kept(blockTradeRows, blockTradeTable); }
    const LimitTable& stockRates() const { return kept(stockRateRows, stockRateTable); }
    const LimitTable& shanghaiConnectRates() const { return kept(shanghaiConnectRows, shanghaiConnectRateTable); }
    const LimitTable& shenzhenConnectRates() const { return kept(shenzhenConnectRows, shenzhenConnectRateTable); }
    const NumberRows& subscriptionFees() const { return kept(feeRows, subscriptionFeeRows); }
    const NumberRows& standardBonds() const { return kept(bondRows, standardBondRows); }

    // The later entries of a repeated key, in file order.
    std::vector<const standin::SettingsEntry*> repeatsOf(std::string_view section, std::string_view key) const;

    const std::map<std::string, bool> overrides;
    const std::string settingsPath;

private:
    template <typename Table>
    const Table& kept(std::optional<Table>& place, Table (*make)(const standin::SettingsText&)) const {
        if (!place) place = make(source);
        return *place;
    }

    // All later entries of repeated keys, by section.
    using Repeats = std::map<std::string_view, std::vector<const standin::SettingsEntry*>>;
    static Repeats repeatsIn(const standin::SettingsText& text);

    const standin::SettingsText& source;
    mutable std::optional<LimitTable> orderLimitRows;
    mutable std::optional<LimitTable> blockTradeRows;
    mutable std::optional<LimitTable> stockRateRows;
    mutable std::optional<LimitTable> shanghaiConnectRows;
    mutable std::optional<LimitTable> shenzhenConnectRows;
    mutable std::optional<NumberRows> feeRows;
    mutable std::optional<NumberRows> bondRows;
    mutable std::optional<Repeats> repeats;
};

}  // namespace ttconfig
