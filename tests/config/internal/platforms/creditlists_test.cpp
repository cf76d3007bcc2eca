#include "traderbase/base/config/internal/platforms/creditlists.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace ttservice::internal;

namespace {

std::vector<std::string> texts(std::string_view value) {
    std::vector<std::string> all;
    forEachCollateralSaleEntry(value, [&all](const CreditEntry& entry) { all.emplace_back(entry.text); });
    return all;
}

}  // namespace

TEST(CreditLists, EverySemicolonSeparates) {
    EXPECT_EQ(texts("1:a;2:b"), (std::vector<std::string>{"1:a", "2:b"}));
    EXPECT_EQ(texts("1:a;;2:b;"), (std::vector<std::string>{"1:a", "", "2:b", ""}));
    EXPECT_EQ(texts(""), (std::vector<std::string>{""}));
}

TEST(CreditLists, TheFirstColonEndsThePlatform) {
    const CreditEntry entry = collateralSaleEntry("12:600000:1,600001");
    EXPECT_EQ(entry.kind, CreditEntryKind::Entry);
    EXPECT_EQ(entry.platform, 12);
    EXPECT_EQ(entry.payload, "600000:1,600001");
}

TEST(CreditLists, AnEntryWithoutColonIsNotAnEntry) {
    for (const char* text : {"", "12", "0.5,0.6", "a"}) {
        EXPECT_EQ(collateralSaleEntry(text).kind, CreditEntryKind::NoPlatform) << text;
        EXPECT_EQ(concentrationEntry(text).kind, CreditEntryKind::NoPlatform) << text;
    }
}

TEST(CreditLists, ThePlatformIsReadLoosely) {
    struct {
        const char* text;
        int platform;
    } const rows[] = {{"12:", 12}, {" 12:", 12}, {"12x:", 12}, {"-5:", -5}, {"+5:", 5}, {"x:", 0}, {":", 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(collateralSaleEntry(row.text).platform, row.platform) << row.text;
        EXPECT_EQ(collateralSaleEntry(row.text).kind, CreditEntryKind::Entry) << row.text;
    }
}

TEST(CreditLists, AConcentrationEntryNeedsTwoFields) {
    for (const char* text : {"12:", "12:0.5", "12:x"}) {
        EXPECT_EQ(concentrationEntry(text).kind, CreditEntryKind::TooFewFields) << text;
    }
    struct {
        const char* text;
        const char* first;
        const char* second;
    } const rows[] = {{"12:0.5,0.6", "0.5", "0.6"}, {"12:0.5,0.6,0.7", "0.5", "0.6"}, {"12:,", "", ""},
                      {"12:,,0.7", "", ""},         {"12:0.5,", "0.5", ""},           {"12:1:2,3", "1:2", "3"}};
    for (const auto& row : rows) {
        const ConcentrationEntry entry = concentrationEntry(row.text);
        EXPECT_EQ(entry.kind, CreditEntryKind::Entry) << row.text;
        EXPECT_EQ(entry.platform, 12) << row.text;
        EXPECT_EQ(entry.ratios[0], row.first) << row.text;
        EXPECT_EQ(entry.ratios[1], row.second) << row.text;
    }
}
