#include "traderbase/base/config/internal/products/contractcatalogue.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "traderbase/base/config/internal/products/catalogueentries.h"

using namespace ttservice::internal;

namespace {

std::vector<std::string> keysOf(const ContractCatalogue& catalogue) {
    std::vector<std::string> keys;
    for (const auto& entry : catalogue.records)
        keys.push_back(entry.first);
    return keys;
}

}  // namespace

TEST(ContractCatalogue, GrowsByWhatEachTextSays) {
    ContractCatalogue catalogue;
    enterContracts("", catalogue);
    EXPECT_TRUE(catalogue.records.empty());
    enterContracts("P1:label,0.5,100000,2,0;P1:label,0.3,50000,2,1", catalogue);
    EXPECT_EQ(keysOf(catalogue), (std::vector<std::string>{"P1_credit", "P1_stock"}));
    enterContracts("P2:;bad;:a,1,2,3,1", catalogue);
    EXPECT_EQ(keysOf(catalogue), (std::vector<std::string>{"P1_credit", "P1_stock", "P2_stock", "_credit"}));
    enterContractTypes("", catalogue);
    EXPECT_TRUE(catalogue.stockProductByType.empty());
    EXPECT_TRUE(catalogue.creditProductByType.empty());
}

TEST(ContractCatalogue, TellsTheOutcomeOfATypeEntry) {
    ContractCatalogue catalogue;
    enterContracts("S:a,1,2,3,0;C:a,1,2,3,1", catalogue);
    struct Row {
        std::string text;
        EntryOutcome outcome;
    };
    const std::vector<Row> rows = {
        {"S:TWAP", EntryOutcome::Stored},          {"C:TWAP", EntryOutcome::Stored},
        {"X:TWAP", EntryOutcome::SkippedNoRecord}, {"S:TWAP:VWAP", EntryOutcome::SkippedColons},
        {"S", EntryOutcome::SkippedColons},        {"", EntryOutcome::SkippedEmpty},
    };
    for (const Row& row : rows) {
        ContractCatalogue copy = catalogue;
        EXPECT_EQ(contractTypesOutcome(pairEntry(row.text), copy), row.outcome) << row.text;
        enterContractTypes(row.text, copy);
        const bool entered = !copy.stockProductByType.empty() || !copy.creditProductByType.empty();
        EXPECT_EQ(entered, isStored(row.outcome)) << row.text;
    }
}
