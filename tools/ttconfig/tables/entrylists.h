#pragma once

#include <standin/settingstext.h>

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "traderbase/base/config/internal/products/contractcatalogue.h"

// Entry lists of one settings text. The library's descriptions define how a list is split and which entries count. The
// texts of an entry are views into the row, so placeInValue() gives their places. Walks are streaming: a value may have
// a million entries.

namespace ttconfig {

// The row's value; empty if there is no row.
inline std::string_view valueOf(const standin::SettingsEntry* row) {
    return row == nullptr ? std::string_view() : row->value;
}

// Among the entries for which the predicate is true, the one that counts.
template <typename Entry, typename Predicate>
std::optional<Entry> countingEntry(const ttservice::internal::EntryList<Entry>& list, std::string_view value,
                                   Predicate&& isAsked) {
    std::optional<Entry> found;
    ttservice::internal::forEachEntry(list, value, [&](const Entry& entry) {
        if (found && list.counting != ttservice::internal::Counting::Last) return;
        if (isAsked(entry)) found = entry;
    });
    return found;
}

// Stores a value under the name of its entry. For a repeated name, the list says whether the first or the last stays.
template <typename Entry, typename Map, typename Value>
void enter(const ttservice::internal::EntryList<Entry>& list, Map& map, typename Map::key_type name, Value&& value) {
    if (list.counting == ttservice::internal::Counting::Last) {
        map.insert_or_assign(std::move(name), std::forward<Value>(value));
    } else {
        map.emplace(std::move(name), std::forward<Value>(value));
    }
}

// The algorithm products: the entry that counts for each record key. All of them are held in memory.
using ContractEntries = std::map<std::string, ttservice::internal::ContractEntry, ttservice::internal::JoinedTextLess>;

inline ContractEntries contractEntries(std::string_view value) {
    using namespace ttservice::internal;
    ContractEntries entries;
    forEachContract(value, [&entries](const JoinedText& key, const ContractEntry& entry) {
        enter(kContracts, entries, textOf(key), entry);
    });
    return entries;
}

// An algorithm type and the product of its entry, both as views into the entry.
struct TypeEntry {
    std::string_view type;
    std::string_view product;
};

// The entry that counts for each type: [0] for stock accounts, [1] for credit accounts. All of them are held in memory.
using TypeEntries = std::array<std::map<std::string_view, TypeEntry>, 2>;

inline TypeEntries typeEntries(std::string_view value, const ContractEntries& contracts) {
    using namespace ttservice::internal;
    TypeEntries entries;
    forEachContractType(value, contracts, [&entries](bool isCredit, std::string_view product, std::string_view type) {
        enter(kContractTypes, entries[isCredit ? 1 : 0], type, TypeEntry{type, product});
    });
    return entries;
}

// Passes each type of every stored entry in a list of contract types to sink(entry, type).
template <typename Sink>
void forEachType(std::string_view value, Sink&& sink) {
    using namespace ttservice::internal;
    forEachEntry(kContractTypes, value, [&sink](const PairEntry& entry) {
        forEachTypeOf(entry, [&](std::string_view type) { sink(entry, type); });
    });
}

}  // namespace ttconfig
