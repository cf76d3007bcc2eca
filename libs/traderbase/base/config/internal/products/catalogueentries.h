#pragma once

#include <array>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/keys/entrylist.h"

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

// Passes each algorithm type of a stored entry product:type|type to the sink.
template <typename Sink>
void forEachTypeOf(const PairEntry& entry, Sink&& sink) {
    if (isStored(entry.outcome)) splitKeepEmpty(entry.second, '|', sink);
}

// --- productId:text,real number,long integer,integer,credit flag

struct ContractEntry {
    std::string_view text;
    EntryOutcome outcome;
    std::string_view productId;
    std::array<std::string_view, 5> fields;  // empty unless Stored
};

// An entry with a product ID is stored even if its fields are wrong: a named product always has a record.
ContractEntry contractEntry(std::string_view text);

// Whether the record is for credit accounts; one without fields is for stock accounts.
bool isForCredit(const ContractEntry& entry);

// --- market:code,code,...

struct MarketCodesEntry {
    std::string_view text;
    EntryOutcome outcome;  // always stored; an empty entry gives an empty market and an empty code
    std::string_view market;
    std::string_view codes;
};

MarketCodesEntry marketCodesEntry(std::string_view text);

// Passes each code of the entry to the sink, empty ones included.
template <typename Sink>
void forEachCodeOf(const MarketCodesEntry& entry, Sink&& sink) {
    splitKeepEmpty(entry.codes, ',', sink);
}

// --- tag:time,time,... (a whole value)

struct TagEntry {
    std::string_view text;
    EntryOutcome outcome;
    std::string_view tag;
    std::string_view times;  // up to the next ":"; the rest is ignored
};

TagEntry tagEntry(std::string_view text);

// Passes each time of a stored tag to the sink, empty ones included.
template <typename Sink>
void forEachTimeOf(const TagEntry& entry, Sink&& sink) {
    if (isStored(entry.outcome)) splitKeepEmpty(entry.times, ',', sink);
}

// --- product,product,... (a combination)

struct GroupEntry {
    std::string_view text;
    std::string_view first;  // the product that the margin is charged on
};

GroupEntry groupEntry(std::string_view text);

// Passes each product of the group to the sink, empty ones included.
template <typename Sink>
void forEachProductOf(const GroupEntry& entry, Sink&& sink) {
    splitKeepEmpty(entry.text, ',', sink);
}

// Whether a product of the group is its first: by place, not by name.
constexpr bool isFirstOf(const GroupEntry& entry, std::string_view product) {
    return product.data() == entry.first.data();
}

// --- the lists

inline constexpr EntryList<ContractEntry> kContracts{keys::contracts, ';', EmptyPieces::Count, Counting::Last,
                                                     contractEntry};
inline constexpr EntryList<PairEntry> kContractTypes{keys::contractTypes, ';', EmptyPieces::Count, Counting::Last,
                                                     pairEntry};
inline constexpr EntryList<PairEntry> kT0Strategies{keys::t0Strategies, ';', EmptyPieces::Count, Counting::All,
                                                    pairEntry};
inline constexpr EntryList<MarketCodesEntry> kFixedPriceFunds{keys::fixedPriceFunds, ';', EmptyPieces::CountInText,
                                                              Counting::Last, marketCodesEntry};
inline constexpr EntryList<GroupEntry> kCombinations{keys::combinations, ';', EmptyPieces::Count, Counting::First,
                                                     groupEntry};
inline constexpr EntryList<std::string_view> kLendingFirstFunds{keys::sloBalanceFirstFunds, ',', EmptyPieces::Count,
                                                                Counting::Union, textEntry};
inline constexpr EntryList<std::string_view> kHttpProducts{keys::httpProductIds, ',', EmptyPieces::Drop,
                                                           Counting::Union, textEntry};
inline constexpr EntryList<std::string_view> kAlgorithmTypes{keys::algoTypes, ';', EmptyPieces::CountInText,
                                                             Counting::Union, textEntry};
// The other list of types uses a different separator.
inline constexpr EntryList<std::string_view> kBuySellHideTypes{keys::buySellHideAlgoTypes, ',',
                                                               EmptyPieces::CountInText, Counting::Union, textEntry};

}  // namespace ttservice::internal
