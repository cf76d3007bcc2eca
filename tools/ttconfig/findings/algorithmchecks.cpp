// Algorithm checks: answers what is wrong with the algorithm products and types.
// Doors: checkContracts(), checkContractTypes(), checkHttpProducts(), checkPairs(), checkTexts().
// Owns: nothing.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <array>
#include <unordered_map>

#include "traderbase/base/config/internal/catalogueentries.h"
#include "ttconfig/findings/listchecks.h"
#include "ttconfig/findings/numberchecks.h"
#include "ttconfig/findings/valuechecks.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

constexpr std::string_view kSkipped = "is passed over; write one between the two parts";

// --- contracts

void checkContractFields(EntryRemarks& remarks, const ContractEntry& entry) {
    remarks.text(entry.fields[0], FullWidth::Fine);
    checkLooseNumber(remarks, entry.fields[1], LooseKind::Decimal, "the number");
    checkLooseNumber(remarks, entry.fields[2], LooseKind::Long, "the long number");
    checkLooseNumber(remarks, entry.fields[3], LooseKind::Integer, "the whole number");
    checkLooseFlag(remarks, entry.fields[4], "a credit account");
}

bool isCredit(const ContractEntry& entry) {
    return entry.outcome == EntryOutcome::Stored && looseInt(entry.fields[4]) == 1;
}

void checkContract(EntryRemarks& remarks, const ContractEntry& entry,
                   std::array<std::unordered_map<std::string_view, Place>, 2>& seen) {
    if (entry.outcome == EntryOutcome::SkippedEmpty) return;
    if (!isStored(entry.outcome)) return checkColons(remarks, entry.text, kSkipped);
    checkName(remarks, entry.productId, ",|", ";");
    if (entry.outcome == EntryOutcome::Stored) {
        checkContractFields(remarks, entry);
    } else {
        remarks.wrong(RuleId::WrongFieldCount, entry.text,
                      "has not five fields, so that the product is known, but for stock accounts and without values");
    }
    const bool credit = isCredit(entry);
    const Place place = remarks.placeOf(entry.text);
    const auto [known, isNew] = seen[credit ? 1 : 0].emplace(entry.productId, place);
    if (isNew) return;
    remarks.say(RuleId::RepeatedItem, entry.text,
                fmt::format("{} has a record for {} accounts already at {}; this later one counts, take one out",
                            shownText(entry.productId), credit ? "credit" : "stock", named(known->second)),
                known->second);
    known->second = place;
}

// --- types

struct TypeHome {
    std::string_view product;
    Place place;
};

// The types of all products, apart for the two kinds of account.
class TypeHomes {
public:
    // Says so when the type was there before.
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
    std::array<std::unordered_map<std::string_view, Place>, 2> seen;
    forEachEntry(remarks.value(), contractEntry,
                 [&](const ContractEntry& entry) { checkContract(remarks, entry, seen); });
}

void checkContractTypes(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::Separate);
    const ContractCatalogue& catalogue = context.contracts();
    TypeHomes homes;
    forEachEntry(remarks.value(), pairEntry, [&](const PairEntry& entry) {
        const EntryOutcome outcome = contractTypesOutcome(entry, catalogue);
        if (outcome == EntryOutcome::SkippedEmpty) return;
        if (outcome == EntryOutcome::SkippedColons) return checkColons(remarks, entry.text, kSkipped);
        if (outcome == EntryOutcome::SkippedNoRecord) {
            return remarks.wrong(RuleId::TypeWithoutContract, entry.first,
                                 "has no record in algomultcontractsetting, so that its types are passed over; "
                                 "name the product there");
        }
        const bool stock = catalogue.records.count(contractKey(entry.first, false)) > 0;
        const bool credit = catalogue.records.count(contractKey(entry.first, true)) > 0;
        splitKeepEmpty(entry.second, '|', [&](std::string_view type) {
            checkName(remarks, type, ",/", "|");
            if (!type.empty()) homes.check(remarks, type, entry.first, stock, credit);
        });
    });
}

void checkHttpProducts(EntryRemarks& remarks, SettingsContext& context) {
    remarks.lookForComment(Semicolons::CommentBeforeWords);
    const ContractCatalogue& catalogue = context.contracts();
    SeenNames seen;
    splitDropEmpty(remarks.value(), ',', [&](std::string_view product) {
        seen.check(remarks, product);
        if (product.find_first_of(";|") != std::string_view::npos) return checkName(remarks, product, ";|", ",");
        const bool isKnown = catalogue.records.count(contractKey(product, false)) > 0 ||
                             catalogue.records.count(contractKey(product, true)) > 0;
        if (isKnown) return remarks.text(product);
        remarks.wrong(RuleId::HttpProductWithoutContract, product,
                      "has no record in algomultcontractsetting; check the name, letter case counts");
    });
}

void checkPairs(EntryRemarks& remarks) {
    remarks.lookForComment(Semicolons::Separate);
    SeenNames seen;
    forEachEntry(remarks.value(), pairEntry, [&](const PairEntry& entry) {
        if (entry.outcome == EntryOutcome::SkippedEmpty) return;
        if (!isStored(entry.outcome)) return checkColons(remarks, entry.text, kSkipped);
        checkName(remarks, entry.first, ",|", ";");
        remarks.text(entry.second, FullWidth::Fine);
        seen.check(remarks, entry.first);
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
