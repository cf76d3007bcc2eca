// Credit lists: finds the entries that count for each platform in the two lists of the credit section.
// Covered by tests/tools/ttconfig/reasons/reasonfacts_test.cpp.

#include "ttconfig/tables/creditlists.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

}  // namespace

ConcentrationEntry creditEntry(const SettingKey& key, std::string_view text) {
    if (key.grammar == ValueGrammar::PlatformRatioPairs) return concentrationEntry(text);
    return {collateralSaleEntry(text), {}};
}

CreditTable creditTable(const standin::SettingsText& text, const SettingKey& key, std::optional<int> only) {
    CreditTable table{text.findEntry(key.section, key.key), {}};
    if (table.row == nullptr) return table;
    forEachCreditItem(*table.row, key, [&](const CreditItem& item) {
        if (item.kind != CreditEntryKind::Entry || (only && item.platform != *only)) return;
        auto& counting = table.byPlatform[item.platform];
        if (key.grammar == ValueGrammar::PlatformRatioPairs) counting.clear();
        counting.push_back(item.text);
    });
    return table;
}

}  // namespace ttconfig
