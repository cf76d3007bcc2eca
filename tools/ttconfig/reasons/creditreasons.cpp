// Reasons for the credit lists: the entry that sets a platform's ratios, and the one that says that a sale repays debt.
// Entry points: addCreditReasons().
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include <optional>

#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/edits/fieldtexts.h"
#include "ttconfig/edits/pieceedits.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/tables/creditlists.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;
using internal::CreditEntryKind;
using internal::SettingKey;

std::string entryName(const internal::CreditEntry& entry) {
    return "the entry " + shownText(entry.text);
}

// Whether the entry is for the platform, even if it has too few fields.
bool isAbout(const internal::CreditEntry& entry, int platform) {
    return entry.kind != CreditEntryKind::NoPlatform && entry.platform == platform;
}

// Appends an entry to the key's value, or makes it the value if there is none.
void suggestEntry(const Question& question, const SettingKey& key, const std::string& entry, Edits& edits) {
    const standin::SettingsEntry* row = entryOf(question, key);
    if (row == nullptr || row->value.empty()) {
        edits.setValue(key, entry);
        return;
    }
    const std::string value(row->value);
    edits.setValue(*row, value + ";" + entry);
    if (value.back() == ';') edits.setValue(*row, value + entry);
}

// --- concentration ratios

Answer ratiosAnswer(bool isListed, std::string_view first, std::string_view second) {
    return {isListed, internal::looseDouble(first), internal::looseDouble(second)};
}

Explanation explainConcentration(const Question& question) {
    const SettingKey& key = keys::concentrationRatio;
    const int platform = question.number(0);
    const CreditTable table = creditTable(question.settings(), key, platform);
    const Answer none = ratiosAnswer(false, {}, {});
    if (table.row == nullptr) return {none, Reason::KeyAbsent, "there is no key " + nameOf(key), std::nullopt, {}, 0};
    Explanation explanation{none,
                            Reason::NotListed,
                            nameOf(key) + " has no entry for " + platformName(platform),
                            valuePlace(*table.row),
                            {},
                            0};
    for (const auto& [named, entries] : table.byPlatform) {
        const internal::ConcentrationEntry entry = internal::concentrationEntry(entries.back());
        explanation = {ratiosAnswer(true, entry.ratios[0], entry.ratios[1]),
                       Reason::PerPlatformValue,
                       nameOf(key) + " has an entry for " + platformName(named),
                       placeInValue(*table.row, entry.text),
                       {},
                       0};
    }
    forEachCreditItem(*table.row, key, [&](const CreditItem& item) {
        const bool counts = explanation.reason == Reason::PerPlatformValue && explanation.place == item.place;
        if (!isAbout(item, platform) || counts) return;
        lose(explanation, [&] {
            return Candidate{Reason::PerPlatformValue, entryName(item), item.place,
                             item.kind == CreditEntryKind::TooFewFields ? "less than two numbers: passed over"
                                                                        : "overwritten by a later entry"};
        });
    });
    addRepeats(question, key, explanation);
    return explanation;
}

std::string newRatios(const std::vector<std::string>& ratios) {
    return writtenLike({}, FieldKind::Decimal, ratios[0]) + "," + writtenLike({}, FieldKind::Decimal, ratios[1]);
}

// Repairs entries for the platform that have too few numbers.
void suggestMeantRatios(const Question& question, int platform, const std::vector<std::string>& ratios, Edits& edits) {
    const standin::SettingsEntry* row = entryOf(question, keys::concentrationRatio);
    if (row == nullptr) return;
    edits.reaching({});
    forEachCreditItem(*row, keys::concentrationRatio, [&](const CreditItem& item) {
        const bool isMeant = item.kind == CreditEntryKind::TooFewFields && item.platform == platform;
        if (isMeant) edits.replacePiece(*row, item.payload, newRatios(ratios));
    });
}

// An entry with the platform and the ratios. Further numbers of the old entry are kept.
std::string writtenRatios(int platform, const std::vector<std::string>& ratios, std::string_view old) {
    const internal::ConcentrationEntry entry = internal::concentrationEntry(old);
    const bool isOld = entry.kind == CreditEntryKind::Entry && entry.platform == platform;
    if (!isOld) return std::to_string(platform) + ":" + newRatios(ratios);
    std::size_t number = 0;
    const std::string fields = withPieces(entry.payload, ',', [&](std::string_view field) {
        const bool isRatio = number < ratios.size();
        return std::optional(isRatio ? writtenLike(field, FieldKind::Decimal, ratios[number++]) : std::string(field));
    });
    return std::string(old.substr(0, old.size() - entry.payload.size())) + fields;
}

void suggestConcentration(const Question& question, const Wanted& wanted, Edits& edits) {
    const int platform = question.number(0);
    const std::vector<std::string> items = wanted.items();
    if (items.size() != 3) return;
    const bool isListed = items[0] == "true";
    const std::vector<std::string> ratios(items.begin() + 1, items.end());
    const auto entryOfPlatform = [platform](std::string_view piece) {
        const auto entry = internal::concentrationEntry(piece);
        const bool isOfIt = entry.kind == CreditEntryKind::Entry && entry.platform == platform;
        return isOfIt ? std::optional(entry) : std::nullopt;
    };
    WantedPieces pieces;
    pieces.separator = ';';
    pieces.order = WantedPieces::Order::LastOfName;
    pieces.count = isListed ? 1 : 0;
    pieces.counts = [entryOfPlatform](std::string_view piece) { return entryOfPlatform(piece).has_value(); };
    pieces.names = [](std::size_t, std::string_view) { return true; };
    pieces.says = [entryOfPlatform, ratios](std::size_t, std::string_view piece) {
        const auto entry = entryOfPlatform(piece);
        return says(entry->ratios[0], FieldKind::Decimal, ratios[0]) &&
               says(entry->ratios[1], FieldKind::Decimal, ratios[1]);
    };
    pieces.written = [platform, ratios](std::size_t, std::string_view old) {
        return writtenRatios(platform, ratios, old);
    };
    pieces.others = "other platforms";
    suggestPieces(question.settings(), keys::concentrationRatio.section, keys::concentrationRatio.key, pieces, edits);
    suggestMeantRatios(question, platform, ratios, edits);
}

// --- codes whose sale repays debt

// The part of the entry that is the code; a null view if the entry does not list it.
std::string_view codeIn(const internal::CreditEntry& entry, std::string_view code) {
    std::string_view found;
    internal::splitDropEmpty(entry.payload, ',', [&](std::string_view piece) {
        if (piece == code && found.data() == nullptr) found = piece;
    });
    return found;
}

Explanation explainCollateralSale(const Question& question) {
    const SettingKey& key = keys::collateralSaleRepay;
    const standin::SettingsEntry* row = entryOf(question, key);
    const std::string what = platformName(question.number(0)) + " and the code " + shownText(question.text(1));
    if (row == nullptr) return decided(false, Reason::KeyAbsent, "there is no key " + nameOf(key));
    Explanation explanation =
        decided(false, Reason::NotListed, nameOf(key) + " does not list " + what, valuePlace(*row));
    forEachCreditItem(*row, keys::collateralSaleRepay, [&](const CreditItem& item) {
        if (!isAbout(item, question.number(0))) return;
        const std::string_view code = codeIn(item, question.text(1));
        if (code.data() == nullptr) {
            lose(explanation, [&] {
                return Candidate{Reason::Listed, entryName(item), item.place, "does not have the code"};
            });
        } else if (explanation.reason == Reason::Listed) {
            lose(explanation, {Reason::Listed, "the code once more", placeInValue(*row, code), "changes nothing"});
        } else {
            Explanation listed =
                decided(true, Reason::Listed, nameOf(key) + " lists " + what, placeInValue(*row, code));
            listed.lost = std::move(explanation.lost);
            listed.furtherLost = explanation.furtherLost;
            explanation = std::move(listed);
        }
    });
    addRepeats(question, key, explanation);
    return explanation;
}

// The value with the code removed from the platform's entries.
std::string valueWithoutCode(const standin::SettingsEntry& row, int platform, std::string_view code) {
    return withPieces(row.value, ';', [&](std::string_view text) {
        const internal::CreditEntry entry = internal::collateralSaleEntry(text);
        if (!isAbout(entry, platform)) return std::optional<std::string>(text);
        const std::string codes = withPieces(entry.payload, ',', [&](std::string_view each) {
            return each == code ? std::nullopt : std::optional<std::string>(each);
        });
        return std::optional(std::string(text.substr(0, text.size() - entry.payload.size())) + codes);
    });
}

void suggestCollateralSale(const Question& question, const Wanted& wanted, Edits& edits) {
    const standin::SettingsEntry* row = entryOf(question, keys::collateralSaleRepay);
    const int platform = question.number(0);
    const std::string& code = question.text(1);
    const auto flag = wanted.flag();
    if (!flag) return;
    if (!*flag) {
        if (row == nullptr) return;
        edits.setValue(*row, valueWithoutCode(*row, platform, code));
        edits.reaching("everything else that the line lists");
        edits.removeLine(*row);
        return;
    }
    suggestEntry(question, keys::collateralSaleRepay, std::to_string(platform) + ":" + code, edits);
    if (row == nullptr) return;
    forEachCreditItem(*row, keys::collateralSaleRepay, [&](const CreditItem& item) {
        if (!isAbout(item, platform)) return;
        const char* separator = item.payload.empty() ? "" : ",";
        edits.replacePiece(*row, item.text, std::string(item.text) + separator + code);
    });
}

// --- the ratio that no load reads

void addUnreadRatio(const Question& question, Explanation& explanation) {
    if (const auto* entry = entryOf(question, keys::finEnableBailRatio)) {
        lose(explanation,
             {Reason::FileValue, nameOf(keys::finEnableBailRatio), valuePlace(*entry), "no load reads it"});
    }
}

Explanation explainBailRatio(const Question& question) {
    Explanation explanation = decided(internal::valueWhenMissing<double>(keys::finEnableBailRatio), Reason::Fixed,
                                      "no load reads the ratio of financing to available margin");
    addUnreadRatio(question, explanation);
    return explanation;
}

Explanation explainUsesBailRatio(const Question& question) {
    Explanation explanation =
        decided(false, Reason::Fixed, "no load reads the ratio of financing to available margin for any platform");
    addUnreadRatio(question, explanation);
    return explanation;
}

}  // namespace

void addCreditReasons(ExplainedCalls& calls) {
    calls.add("isUseConcentrationRatioPts", {explainConcentration, suggestConcentration});
    calls.add("isRepayDebtByCollateralSell", {explainCollateralSale, suggestCollateralSale});
    calls.add("getFinEnableBailRatio", {explainBailRatio, {}});
    calls.add("isUseFinEnableBailRatio", {explainUsesBailRatio, {}});
}

}  // namespace ttconfig
