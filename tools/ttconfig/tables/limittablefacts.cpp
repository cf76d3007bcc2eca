// Limit tables: answers which item of which row a place of a limit table has its value from.
// Doors: orderLimitTable() and its sisters.
// Owns: nothing; the rows' grammar is the library's.
// Covered by tests/tools/ttconfig/reasonfacts_test.cpp.

#include "ttconfig/tables/limittablefacts.h"

#include <ttplatform/text.h>

#include <algorithm>
#include <deque>
#include <iterator>
#include <string>

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsSection;
using standin::SettingsText;

// Whether a text comes to that one in upper case. Most texts have no letter to change, and are compared as they are.
bool comesTo(std::string_view written, std::string_view upper) {
    const bool isUpper = std::none_of(written.begin(), written.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (static_cast<unsigned char>(c) & 0x80U) != 0;
    });
    return isUpper ? written == upper : utils::toUpper(std::string(written)) == upper;
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
        } else {
            table.rows.push_back({section, &row});
        }
    }
}

template <std::size_t Count>
LimitTable tableOf(const SettingsText& text, const SettingKey& topic, const LimitRowShape<Count>& shape) {
    LimitTable table;
    enterRows(text, topic, shape, table);
    return table;
}

}  // namespace

bool isNamed(const LimitItem& item, std::string_view market, std::string_view code) {
    return comesTo(item.item, code) && comesTo(item.market, market);
}

LimitEntries LimitTable::entriesOf(std::string_view market, std::string_view item) const {
    std::deque<LimitEntry> found;
    LimitEntries entries;
    for (const LimitRow& each : rows) {
        forEachLimitItem(each.row->key, [&](const LimitItem& written) {
            if (!isNamed(written, market, item)) return;
            found.push_back({each.section, each.row, written});
            if (found.size() <= kMostFormer) return;
            found.pop_front();
            ++entries.furtherFormer;
        });
    }
    if (found.empty()) return entries;
    entries.last = found.back();
    entries.former.assign(std::next(found.rbegin()), found.rend());
    return entries;
}

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
