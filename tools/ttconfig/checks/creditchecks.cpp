// Credit checks: reports what is wrong with the lists of the credit section.
// Entry points: checkConcentration(), checkCollateralSale().
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <algorithm>
#include <map>

#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/checks/listchecks.h"
#include "ttconfig/checks/numberchecks.h"
#include "ttconfig/checks/valuechecks.h"
#include "ttconfig/checks/valueranges.h"
#include "ttconfig/tables/creditlists.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

// Checks the platform before the first ":". People write 41,47:CODES for two platforms, which has its own message.
void checkPlatform(EntryRemarks& remarks, const CreditEntry& entry) {
    const std::string_view platform = entry.text.substr(0, entry.text.find(':'));
    if (!isNumberList(platform, ",|/ ")) {
        checkLooseNumber(remarks, platform, NumberKind::Integer, "the platform ID");
        return;
    }
    remarks.wrong(RuleId::WrongSeparator, platform, [&] {
        return fmt::format("is not several platforms: the platform ID reads as {}; write an entry for each",
                           entry.platform);
    });
}

void checkRatios(EntryRemarks& remarks, const ConcentrationEntry& entry, const ValueRange* range) {
    for (const std::string_view ratio : entry.ratios) {
        if (checkLooseNumber(remarks, ratio, NumberKind::Decimal, "the ratio")) checkValueRange(remarks, range, ratio);
    }
    const auto used = static_cast<std::size_t>(entry.ratios[1].data() - entry.payload.data()) + entry.ratios[1].size();
    if (used == entry.payload.size()) return;
    remarks.wrong(RuleId::ExtraFields, entry.payload.substr(used + 1), "is ignored: two ratios are read; take it out");
}

// The entry with its first separator replaced by ":" and the others by ","; empty unless that makes a valid entry of
// three numbers.
std::string ratiosMeant(std::string_view text) {
    const std::size_t first = text.find_first_of(":;,/ ");
    if (first == std::string_view::npos) return {};
    const std::string meant = std::string(text.substr(0, first)) + ':' + withSigns(text.substr(first + 1), ":;/ ", ',');
    const ConcentrationEntry entry = concentrationEntry(meant);
    const bool isGood = entry.kind == CreditEntryKind::Entry && fieldCount(entry.payload) == 2 &&
                        isWholeNumber(meant.substr(0, first)) && strictDouble(entry.ratios[0]) &&
                        strictDouble(entry.ratios[1]);
    return isGood ? meant : std::string();
}

class ConcentrationCheck {
public:
    ConcentrationCheck(EntryRemarks& target, const ValueRange* ratios) : remarks(target), range(ratios) {}

    void check(const CreditItem& entry) {
        if (entry.text.empty() || startOf(entry) < toldUpTo) return;
        if (entry.kind != CreditEntryKind::Entry) return sayPassedOver(entry);
        checkPlatform(remarks, entry);
        checkRatios(remarks, entry, range);
        const auto [known, isNew] = seen.emplace(entry.platform, entry.place);
        if (isNew) return;
        remarks.say(RuleId::RepeatedItem, entry.text,
                    fmt::format("platform {} has ratios already at {}; these later ones count, take one out",
                                entry.platform, named(known->second)),
                    known->second);
        known->second = entry.place;
    }

private:
    std::size_t startOf(const ConcentrationEntry& entry) const {
        return static_cast<std::size_t>(entry.text.data() - remarks.value().data());
    }

    void sayPassedOver(const ConcentrationEntry& entry) {
        // 41:0.5;0.3 parses as two entries without effect, although its author meant one.
        const std::string_view value = remarks.value();
        const std::size_t start = startOf(entry);
        const std::size_t next = std::min(start + entry.text.size() + 1, value.size());
        for (const std::string_view text : {entry.text, value.substr(start, value.find(';', next) - start)}) {
            const std::string meant = ratiosMeant(text);
            if (meant.empty()) continue;
            toldUpTo = start + text.size();
            return remarks.wrong(RuleId::WrongSeparator, text, [&] {
                return "is passed over: an entry is platform:ratio,ratio" + orWrite(meant, "write it so");
            });
        }
        if (entry.kind == CreditEntryKind::NoPlatform) {
            remarks.wrong(RuleId::EntryWithoutColon, entry.text,
                          "has no \":\" and is passed over; write platform:ratio,ratio");
        } else {
            remarks.wrong(RuleId::WrongFieldCount, entry.text,
                          "has one ratio and is passed over; write two with \",\" between them");
        }
    }

    EntryRemarks& remarks;
    const ValueRange* range;
    std::map<int, Place> seen;
    std::size_t toldUpTo = 0;  // an offset in the value; entries that start before it are already reported
};

}  // namespace

void checkConcentration(EntryRemarks& remarks, const SettingKey& row) {
    remarks.lookForComment(Semicolons::CommentBeforeWords);
    ConcentrationCheck checks(remarks, rangeOf(row));
    forEachCreditItem(remarks.entry(), row, [&checks](const CreditItem& entry) { checks.check(entry); });
}

void checkCollateralSale(EntryRemarks& remarks) {
    remarks.lookForComment(Semicolons::CommentBeforeWords);
    bool hasPlatform = false;
    forEachCreditItem(remarks.entry(), keys::collateralSaleRepay, [&](const CreditItem& entry) {
        if (entry.text.empty()) return;
        if (entry.kind == CreditEntryKind::NoPlatform) {
            return remarks.wrong(RuleId::EntryWithoutColon, entry.text, [&] {
                const bool hasSign = entry.text.find('=') != std::string_view::npos;
                return "has no \":\" and is passed over" +
                       orWrite(hasSign ? withSigns(entry.text, "=", ':') : "",
                               hasPlatform ? "write platform:code,code, with \",\" between the codes"
                                           : "write platform:code,code");
            });
        }
        hasPlatform = true;
        checkPlatform(remarks, entry);
        SeenNames seen;
        splitDropEmpty(entry.payload, ',', [&](std::string_view code) {
            checkCode(remarks, code, ":|/ ");
            seen.check(remarks, code);
        });
    });
}

}  // namespace ttconfig
