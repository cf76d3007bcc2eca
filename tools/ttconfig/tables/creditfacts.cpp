// Credit facts: answers which entry of the two credit lists holds for which platform.
// Doors: concentrationFacts(), collateralSaleFacts().
// Owns: nothing; the lists' grammar is the library's.
// Covered by tests/tools/ttconfig/reasonfacts_test.cpp.

#include "ttconfig/tables/creditfacts.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsText;

}  // namespace

ConcentrationFacts concentrationFacts(const SettingsText& text) {
    ConcentrationFacts facts;
    facts.entry = text.findEntry(keys::concentrationRatio.section, keys::concentrationRatio.key);
    if (facts.entry == nullptr) return facts;
    forEachConcentration(*facts.entry, [&facts](const ConcentrationFact& item) {
        if (item.entry.kind == CreditEntryKind::Entry) facts.byPlatform[item.entry.platform] = facts.items.size();
        facts.items.push_back(item);
    });
    return facts;
}

CollateralSaleFacts collateralSaleFacts(const SettingsText& text) {
    CollateralSaleFacts facts;
    facts.entry = text.findEntry(keys::collateralSaleRepay.section, keys::collateralSaleRepay.key);
    if (facts.entry == nullptr) return facts;
    forEachCollateralSale(*facts.entry, [&facts](const CollateralSaleFact& item) {
        if (item.entry.kind == CreditEntryKind::Entry) {
            facts.byPlatform[item.entry.platform].push_back(facts.items.size());
        }
        facts.items.push_back(item);
    });
    return facts;
}

}  // namespace ttconfig
