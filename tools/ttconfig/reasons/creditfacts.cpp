// Credit facts: answers which entry of the two credit lists holds for which platform.
// Doors: concentrationFacts(), collateralSaleFacts().
// Owns: nothing; the lists' grammar is the library's.
// Covered by tests/tools/ttconfig/reasonfacts_test.cpp.

#include "ttconfig/reasons/creditfacts.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsText;

}  // namespace

ConcentrationFacts concentrationFacts(const SettingsText& text) {
    ConcentrationFacts facts;
    facts.entry = text.findEntry(keys::concentrationRatio.section, keys::concentrationRatio.key);
    if (facts.entry == nullptr) return facts;
    forEachConcentrationEntry(facts.entry->value, [&facts](const ConcentrationEntry& entry) {
        if (entry.kind == CreditEntryKind::Entry) facts.byPlatform[entry.platform] = facts.items.size();
        facts.items.push_back({entry, placeInValue(*facts.entry, entry.text)});
    });
    return facts;
}

CollateralSaleFacts collateralSaleFacts(const SettingsText& text) {
    CollateralSaleFacts facts;
    facts.entry = text.findEntry(keys::collateralSaleRepay.section, keys::collateralSaleRepay.key);
    if (facts.entry == nullptr) return facts;
    forEachCollateralSaleEntry(facts.entry->value, [&facts](const CreditEntry& entry) {
        if (entry.kind == CreditEntryKind::Entry) facts.byPlatform[entry.platform].push_back(facts.items.size());
        facts.items.push_back({entry, placeInValue(*facts.entry, entry.text)});
    });
    return facts;
}

}  // namespace ttconfig
