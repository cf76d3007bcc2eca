// Algorithm checks: reports what is wrong with the algorithm products and types.
// Entry points: checkContracts(), checkContractTypes(), checkHttpProducts(), checkPairs(), checkTexts().
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <unordered_map>

#include "traderbase/base/config/internal/limits/limitrows.h"
#include "ttconfig/advice/advice.h"
#include "ttconfig/checks/listchecks.h"
#include "ttconfig/checks/numberchecks.h"
#include "ttconfig/checks/valuechecks.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

// --- contracts

void checkContractFields(EntryRemarks& remarks, const ContractEntry& entry) {
    remarks.text(entry.fields[0], FullWidth::Fine);
    checkLooseNumber(remarks, entry.fields[1], NumberKind::Decimal, "the second field");
    checkLooseNumber(remarks, entry.fields[2], NumberKind::Long, "the third field");
    checkLooseNumber(remarks, entry.fields[3], NumberKind::Integer, "the fourth field");
    checkLooseFlag(remarks, entry.fields[4], "the credit flag");
}

constexpr std::string_view kRecord = "write product:text,number,number,number,0 or 1, with \";\" between the records";

class ContractCheck {
public:
    explicit ContractCheck(EntryRemarks& target) : remarks(target) {}

    void check(const ContractEntry& entry) {
        if (entry.outcome == EntryOutcome::SkippedEmpty || startOf(entry) < toldUpTo) return;
        if (!isStored(entry.outcome)) return sayPassedOver(entry.text);
        checkName(remarks, entry.productId, ",|", ";");
        if (entry.outcome == EntryOutcome::Stored) {
            checkContractFields(remarks, entry);
        } else {
            sayFieldCount(entry);
        }
        checkRepeated(entry);
    }

private:
    std::size_t startOf(const ContractEntry& entry) const {
        return static_cast<std::size_t>(entry.text.data() - remarks.value().data());
    }

    // The record that was meant, if the text is a record with the wrong separators; empty for any other text.
    static std::string recordMeant(std::string_view text) {
        const std::size_t first = text.find_first_of(":,=|");
        if (first == std::string_view::npos) return {};
        const std::string meant =
            std::string(text.substr(0, first)) + ':' + withSigns(text.substr(first + 1), ";|", ',');
        return contractEntry(meant).outcome == EntryOutcome::Stored ? meant : std::string();
    }

    void sayPassedOver(std::string_view text) {
        const std::string meant = recordMeant(text);
        if (meant.empty()) return checkColons(remarks, text, kRecord);
        remarks.wrong(RuleId::EntryWithoutColon, text, [&] {
            return "has no \":\" and is passed over" + orWrite(meant, "write one behind the product");
        });
    }

    void sayFieldCount(const ContractEntry& entry) {
        constexpr std::string_view kBecomes = "so that the product is known, but for stock accounts and without values";
        // P1:x;1;2;3;0 parses as five entries. Those up to the next one with a ":" may be one record with wrong
        // separators.
        const std::string_view value = remarks.value();
        const std::size_t start = startOf(entry);
        const std::size_t colon = value.find(':', std::min(start + entry.text.size(), value.size()));
        const std::size_t end = colon == std::string_view::npos ? value.size() : value.rfind(';', colon);
        const std::string_view all = value.substr(start, end - start);
        const std::string meant = recordMeant(all.substr(0, all.find_last_not_of(';') + 1));
        if (!meant.empty()) {
            toldUpTo = end;
            return remarks.wrong(RuleId::WrongSeparator, all, [&] {
                return fmt::format("has other signs than \",\" between its fields, {}{}", kBecomes,
                                   orWrite(meant, "separate them by \",\""));
            });
        }
        const std::size_t found = entry.outcome == EntryOutcome::DefaultNoFields
                                      ? 0
                                      : fieldCount(entry.text.substr(entry.text.find(':') + 1));
        remarks.wrong(RuleId::WrongFieldCount, entry.text, [&] {
            return fmt::format("has {} field{} and not 5, {}; {}", found, found == 1 ? "" : "s", kBecomes, kRecord);
        });
    }

    void checkRepeated(const ContractEntry& entry) {
        const bool credit = isForCredit(entry);
        const Place place = remarks.placeOf(entry.text);
        const auto [known, isNew] = seen[credit ? 1 : 0].emplace(entry.productId, place);
        if (isNew) return;
        remarks.say(RuleId::RepeatedItem, entry.text,
                    fmt::format("{} has a record for {} accounts already at {}; this later one counts, take one out",
                                shownText(entry.productId), credit ? "credit" : "stock", named(known->second)),
                    known->second);
        known->second = place;
    }

    EntryRemarks& remarks;
    std::array<std::unordered_map<std::string_view, Place>, 2> seen;
    std::size_t toldUpTo = 0;  // an offset in the value; entries that start before it are already reported
};

// --- types

struct TypeHome {
    std::string_view product;
    Place place;
};

// The types of all products, kept apart for stock and credit accounts.
class TypeHomes {
public:
    // Reports a type that was listed before.
    void check(EntryRemarks& remarks, std::string_view type, std::string_view product, bool stock, bool credit) {
        const Place place = remarks.placeOf(type);
        std::optional<TypeHome> former;
        if (stock) enter(homes[0], type, {product, place}, former);
        if (credit) enter(homes[1], type, {product, place}, former);
        if (!former) return;
        const bool isSame = former->product == product;
        const std::string outcome = isSame ? "once is enough" : "this later one counts, take one out";
        remarks.say(isSame ? RuleId::RepeatedInList : RuleId::RepeatedItem, type,
                    fmt::format("{} is a type of {} already at {}; {}", shownText(type), shownText(former->product),
                                named(former->place), outcome),
                    former->place);
    }

private:
    using Homes = std::unordered_map<std::string_view, TypeHome>;

    static void enter(Homes& types, std::string_view type, TypeHome home, std::optional<TypeHome>& former) {
        const auto [known, isNew] = types.emplace(type, home);
        if (isNew) return;
        former = known->second;
        known->second = home;
    }

    std::array<Homes, 2> homes;
};

}  // namespace

void checkContracts(EntryRemarks& remarks) {
    remarks.lookForComment(Semicolons::Separate);
    ContractCheck checks(remarks);
    forEachEntry(kContracts, remarks.value(), [&checks](const ContractEntry& entry) { checks.check(entry); });
}

void checkContractTypes(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::Separate);
    const ContractCatalogue& catalogue = context.contracts();
    TypeHomes homes;
    forEachEntry(kContractTypes, remarks.value(), [&](const PairEntry& entry) {
        const EntryOutcome outcome = contractTypesOutcome(entry, catalogue);
        if (outcome == EntryOutcome::SkippedEmpty) return;
        if (outcome == EntryOutcome::SkippedColons) return checkColons(remarks, entry.text, "write product:type|type");
        if (outcome == EntryOutcome::SkippedNoRecord) {
            if (hasRecord(catalogue.records, entry.second)) {
                return remarks.wrong(RuleId::TypeWithoutContract, entry.text, [&] {
                    return "is passed over: the product stands in front of its types" +
                           orWrite(fmt::format("{}:{}", entry.second, entry.first), "write it there");
                });
            }
            return remarks.wrong(RuleId::TypeWithoutContract, entry.first,
                                 "has no record in algomultcontractsetting, so that its types are passed over; "
                                 "name the product there");
        }
        const bool stock = hasRecord(catalogue.records, entry.first, false);
        const bool credit = hasRecord(catalogue.records, entry.first, true);
        forEachTypeOf(entry, [&](std::string_view type) {
            checkName(remarks, type, ",/", "|");
            if (!type.empty()) homes.check(remarks, type, entry.first, stock, credit);
        });
    });
}

void checkHttpProducts(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::CommentBeforeWords);
    const ContractCatalogue& catalogue = context.contracts();
    SeenNames seen;
    forEachEntry(kHttpProducts, remarks.value(), [&](std::string_view product) {
        seen.check(remarks, product);
        if (product.find_first_of(";|") != std::string_view::npos) return checkName(remarks, product, ";|", ",");
        if (hasRecord(catalogue.records, product)) return remarks.text(product);
        remarks.wrong(RuleId::HttpProductWithoutContract, product,
                      "has no record in algomultcontractsetting; check the name, letter case counts");
    });
}

void checkPairs(EntryRemarks& remarks) {
    remarks.lookForComment(Semicolons::Separate);
    SeenNames seen;
    forEachEntry(kT0Strategies, remarks.value(), [&](const PairEntry& entry) {
        if (entry.outcome == EntryOutcome::SkippedEmpty) return;
        if (!isStored(entry.outcome)) return checkColons(remarks, entry.text, "write strategy:name");
        checkName(remarks, entry.first, ",|", ";");
        remarks.text(entry.second, FullWidth::Fine);
        seen.check(remarks, entry.first, "both are offered, take one out");
    });
}

void checkTexts(EntryRemarks& remarks, char separator) {
    const bool isComma = separator == ',';
    remarks.lookForComment(isComma ? Semicolons::CommentBeforeWords : Semicolons::Separate);
    if (remarks.value().empty()) return;
    SeenNames seen;
    splitKeepEmpty(remarks.value(), separator, [&](std::string_view name) {
        checkName(remarks, name, isComma ? ";|" : ",|", isComma ? "," : ";");
        seen.check(remarks, name);
    });
}

}  // namespace ttconfig
