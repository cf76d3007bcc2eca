// Credit checks: answers what is wrong with the lists of the credit section.
// Doors: checkConcentration(), checkCollateralSale().
// Owns: nothing.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <map>

#include "traderbase/base/config/internal/creditlists.h"
#include "ttconfig/findings/listchecks.h"
#include "ttconfig/findings/numberchecks.h"
#include "ttconfig/findings/valuechecks.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

constexpr std::string_view kNoPlatform = "has no \":\" and is passed over; write platform:what it has";

void checkPlatform(EntryRemarks& remarks, const CreditEntry& entry) {
    checkLooseNumber(remarks, entry.text.substr(0, entry.text.find(':')), LooseKind::Integer, "the platform ID");
}

void checkRatios(EntryRemarks& remarks, const ConcentrationEntry& entry) {
    for (const std::string_view ratio : entry.ratios) {
        if (checkLooseNumber(remarks, ratio, LooseKind::Decimal, "the ratio")) {
            checkLeast(remarks, ratio, 0.0, "is no ratio, but counts; write 0 or more");
        }
    }
    const auto used = static_cast<std::size_t>(entry.ratios[1].data() - entry.payload.data()) + entry.ratios[1].size();
    if (used == entry.payload.size()) return;
    remarks.wrong(RuleId::ExtraFields, entry.payload.substr(used + 1), "is ignored: two ratios are read; take it out");
}

}  // namespace

void checkConcentration(EntryRemarks& remarks) {
    remarks.lookForComment(Semicolons::CommentBeforeWords);
    std::map<int, Place> seen;
    forEachConcentrationEntry(remarks.value(), [&](const ConcentrationEntry& entry) {
        if (entry.text.empty()) return;
        if (entry.kind == CreditEntryKind::NoPlatform) {
            return remarks.wrong(RuleId::EntryWithoutColon, entry.text, kNoPlatform);
        }
        if (entry.kind == CreditEntryKind::TooFewFields) {
            return remarks.wrong(RuleId::WrongFieldCount, entry.text,
                                 "has one ratio and is passed over; write two with \",\" between them");
        }
        checkPlatform(remarks, entry);
        checkRatios(remarks, entry);
        const auto [known, isNew] = seen.emplace(entry.platform, remarks.placeOf(entry.text));
        if (isNew) return;
        remarks.say(RuleId::RepeatedItem, entry.text,
                    fmt::format("platform {} has ratios already at {}; these later ones count, take one out",
                                entry.platform, named(known->second)),
                    known->second);
        known->second = remarks.placeOf(entry.text);
    });
}

void checkCollateralSale(EntryRemarks& remarks) {
    remarks.lookForComment(Semicolons::CommentBeforeWords);
    forEachCollateralSaleEntry(remarks.value(), [&](const CreditEntry& entry) {
        if (entry.text.empty()) return;
        if (entry.kind == CreditEntryKind::NoPlatform) {
            return remarks.wrong(RuleId::EntryWithoutColon, entry.text, kNoPlatform);
        }
        checkPlatform(remarks, entry);
        SeenNames seen;
        splitDropEmpty(entry.payload, ',', [&](std::string_view code) {
            checkName(remarks, code, ":|/", ",");
            seen.check(remarks, code);
        });
    });
}

}  // namespace ttconfig
