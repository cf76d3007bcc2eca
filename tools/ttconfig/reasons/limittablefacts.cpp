// Limit tables: answers which item of which row each place of a limit table has its value from.
// Doors: orderLimitTable() and its sisters.
// Owns: nothing; the rows' grammar is the library's.
// Covered by tests/tools/ttconfig/reasonfacts_test.cpp.

#include "ttconfig/reasons/limittablefacts.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsSection;
using standin::SettingsText;

void enterItem(const SettingsSection& section, const SettingsEntry& row, const LimitItem& item, LimitTable& table) {
    const auto number = static_cast<std::uint32_t>(table.entries.size());
    const auto [place, isNew] = table.byItem.emplace(tableKey(item), number);
    table.entries.push_back({&section, &row, item, isNew ? kNoLimitEntry : place->second});
    place->second = number;
}

// Later rows win; of a repeated key the first value counts.
template <std::size_t Count>
void enterRows(const SettingsText& text, const SettingKey& topic, const LimitRowShape<Count>& /*shape*/,
               LimitTable& table) {
    const SettingsSection* section = text.findSection(topic.section);
    if (section == nullptr) return;
    for (const SettingsEntry& row : section->entries) {
        if (row.repeated || fieldCount(row.value) != Count) {
            table.passedOver.push_back({section, &row});
            continue;
        }
        forEachLimitItem(row.key, [&](const LimitItem& item) { enterItem(*section, row, item, table); });
    }
}

template <std::size_t Count>
LimitTable tableOf(const SettingsText& text, const SettingKey& topic, const LimitRowShape<Count>& shape) {
    LimitTable table;
    enterRows(text, topic, shape, table);
    return table;
}

}  // namespace

LimitTable orderLimitTable(const SettingsText& text) {
    LimitTable table;
    enterRows(text, keys::orderLimits, kOrderLimitRow, table);
    enterRows(text, keys::connectShanghaiOrderLimits, kOrderLimitRow, table);
    enterRows(text, keys::connectShenzhenOrderLimits, kOrderLimitRow, table);
    return table;
}

LimitTable blockTradeTable(const SettingsText& text) {
    return tableOf(text, keys::blockTradeLimits, kBlockTradeLimitRow);
}

LimitTable stockRateTable(const SettingsText& text) {
    return tableOf(text, keys::stockRates, kStockRateRow);
}

LimitTable shanghaiConnectRateTable(const SettingsText& text) {
    return tableOf(text, keys::connectShanghaiRates, kConnectRateRow);
}

LimitTable shenzhenConnectRateTable(const SettingsText& text) {
    return tableOf(text, keys::connectShenzhenRates, kConnectRateRow);
}

}  // namespace ttconfig
