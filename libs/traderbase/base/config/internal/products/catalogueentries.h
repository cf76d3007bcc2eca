#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/text/splitting.h"

// Entries of the product catalogues: what each one says and what a load does with it. Readers store entries silently;
// the outcome tells other callers why an entry has no effect. All texts are views into the value.

namespace ttservice::internal {

enum class EntryOutcome {
    Stored,             // as written
    DefaultNoFields,    // stored as a default record: nothing follows the ":"
    DefaultFieldCount,  // stored as a default record: not exactly five fields
    MarketIsCodes,      // stored with the whole text as market and as codes: no ":"
    SkippedEmpty,       // nothing to store
    SkippedColons,      // skipped: not exactly one ":"
    SkippedNoRecord,    // skipped: the product has no record
    KeptFormer          // no ":": the value of the previous load stays
};

// Whether the entry is stored in any form.
constexpr bool isStored(EntryOutcome outcome) {
    return outcome < EntryOutcome::SkippedEmpty;
}

// The outcome in words, such as "skipped: not exactly one ':'".
std::string_view describe(EntryOutcome outcome);

// --- first:second

struct PairEntry {
    std::string_view text;
    EntryOutcome outcome;
    std::string_view first;  // both empty if nothing is stored
    std::string_view second;
};

PairEntry pairEntry(std::string_view text);

// --- productId:text,real number,long integer,integer,credit flag

struct ContractEntry {
    std::string_view text;
    EntryOutcome outcome;
    std::string_view productId;
    std::array<std::string_view, 5> fields;  // empty unless Stored
};

// An entry with a product ID is stored even if its fields are wrong: a named product always has a record.
ContractEntry contractEntry(std::string_view text);

// --- market:code,code,...

struct MarketCodesEntry {
    std::string_view text;
    EntryOutcome outcome;  // always stored; an empty entry gives an empty market and an empty code
    std::string_view market;
    std::string_view codes;
};

MarketCodesEntry marketCodesEntry(std::string_view text);

// --- tag:time,time,... (a whole value)

struct TagEntry {
    std::string_view text;
    EntryOutcome outcome;
    std::string_view tag;
    std::string_view times;  // up to the next ":"; the rest is ignored
};

TagEntry tagEntry(std::string_view text);

// Hands each entry between ";" to the sink, empty ones included, as grammar(entry) reads it:
//   forEachEntry(value, contractEntry, [](const ContractEntry& entry) { ... });
template <typename Grammar, typename Sink>
void forEachEntry(std::string_view value, Grammar&& grammar, Sink&& sink) {
    splitKeepEmpty(value, ';', [&](std::string_view text) { sink(grammar(text)); });
}

}  // namespace ttservice::internal
