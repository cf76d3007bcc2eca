#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "traderbase/base/config/internal/products/contractcatalogue.h"
#include "ttconfig/settings/place.h"

namespace ttconfig {

// Whether a stored entry is for credit accounts; one without fields is for stock accounts.
bool isForCredit(const ttservice::internal::ContractEntry& entry);

// Hands each type of each pair of the contract types to the sink, with the pair that names it.
template <typename Sink>
void forEachType(const standin::SettingsEntry& row, Sink&& sink) {
    using ttservice::internal::PairEntry;
    ttservice::internal::forEachEntry(row.value, ttservice::internal::pairEntry, [&](const PairEntry& entry) {
        if (!ttservice::internal::isStored(entry.outcome)) return;
        ttservice::internal::splitKeepEmpty(entry.second, '|', [&](std::string_view type) { sink(entry, type); });
    });
}

// An entry of the contracts, and under which key of the table it was stored.
struct ContractFact {
    ttservice::internal::ContractEntry entry;
    Place place;
    std::string key;  // empty when it was passed over
};

// An algorithm type under a product.
struct ContractTypeFact {
    ttservice::internal::PairEntry entry;
    std::string_view type;
    Place place;
    bool isStock = false;   // whether it was entered for stock accounts
    bool isCredit = false;  // whether it was entered for credit accounts
};

// The product catalogue after a first load: the library's own, and for everything in it the entry it is from.
struct ContractFacts {
    ttservice::internal::ContractCatalogue catalogue;
    std::vector<ContractFact> contracts;             // in the order written, skipped ones included
    std::map<std::string, std::size_t> byKey;        // the entry that counts
    std::vector<ContractTypeFact> types;             // in the order written
    std::map<std::string, std::size_t> stockByType;  // the type entry that counts
    std::map<std::string, std::size_t> creditByType;
};

ContractFacts contractFacts(const standin::SettingsText& text);

}  // namespace ttconfig
