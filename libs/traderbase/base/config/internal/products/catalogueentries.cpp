// Catalogue entries: answers what one entry of a product catalogue says, and what a load does with it.
// Entry points: describe(), the grammars and the lists of the header.
// Covered by tests/config/internal/products/catalogueentries_test.cpp.

#include "traderbase/base/config/internal/products/catalogueentries.h"

#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttservice::internal {

std::string_view describe(EntryOutcome outcome) {
    switch (outcome) {
        case EntryOutcome::Stored:
            return "stored";
        case EntryOutcome::DefaultNoFields:
            return "stored as a default record: no fields behind the ':'";
        case EntryOutcome::DefaultFieldCount:
            return "stored as a default record: not exactly five fields";
        case EntryOutcome::MarketIsCodes:
            return "stored as market and as codes: no ':'";
        case EntryOutcome::SkippedEmpty:
            return "skipped: empty";
        case EntryOutcome::SkippedColons:
            return "skipped: not exactly one ':'";
        case EntryOutcome::SkippedNoRecord:
            return "skipped: the product has no record";
        case EntryOutcome::KeptFormer:
            return "without effect: no ':'";
    }
    return "";
}

PairEntry pairEntry(std::string_view text) {
    if (text.empty()) return {text, EntryOutcome::SkippedEmpty, {}, {}};
    std::array<std::string_view, 2> parts;
    if (!piecesExactly(text, ':', parts)) return {text, EntryOutcome::SkippedColons, {}, {}};
    return {text, EntryOutcome::Stored, parts[0], parts[1]};
}

ContractEntry contractEntry(std::string_view text) {
    const PairEntry pair = pairEntry(text);
    ContractEntry entry{text, pair.outcome, pair.first, {}};
    if (!isStored(pair.outcome)) return entry;
    if (pair.second.empty()) {
        entry.outcome = EntryOutcome::DefaultNoFields;
    } else if (!piecesExactly(pair.second, ',', entry.fields)) {
        entry.outcome = EntryOutcome::DefaultFieldCount;
        entry.fields = {};
    }
    return entry;
}

bool isForCredit(const ContractEntry& entry) {
    return looseInt(entry.fields.back()) == 1;
}

MarketCodesEntry marketCodesEntry(std::string_view text) {
    const auto colon = text.find(':');
    if (colon == std::string_view::npos) return {text, EntryOutcome::MarketIsCodes, text, text};
    return {text, EntryOutcome::Stored, text.substr(0, colon), text.substr(colon + 1)};
}

GroupEntry groupEntry(std::string_view text) {
    return {text, text.substr(0, text.find(','))};
}

TagEntry tagEntry(std::string_view text) {
    const std::vector<std::string_view> parts = pieces(text, ':');
    if (parts.size() < 2) return {text, EntryOutcome::KeptFormer, {}, {}};
    return {text, EntryOutcome::Stored, parts[0], parts[1]};
}

}  // namespace ttservice::internal
