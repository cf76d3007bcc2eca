#include <gtest/gtest.h>

#include <locale>
#include <string>
#include <vector>

#include "standin/logsetup.h"
#include "standin/queryhook.h"
#include "tests/support/allocations.h"
#include "tests/support/store.h"
#include "traderbase/base/config/shfixincomelimit.h"

using tests::LoadedStore;
using ttservice::SHFixIncomeLimit;

namespace {

struct TypeRow {
    const char* key;
    int type;
};

constexpr TypeRow kTypes[] = {
    {"shfixincomelimit", 2}, {"shloanenclickdeallimit", 3}, {"shloanenquirydeallimit", 4}, {"shloanbiddeallimit", 5}};

boost::shared_ptr<SHFixIncomeLimit> limitOf(const LoadedStore& store, int type) {
    return store->getSHFixIncomeLimit(static_cast<EBondTradeType>(type));
}

std::string setting(const std::string& key, const std::string& value) {
    return "[setting]\n" + key + "=" + value + "\n";
}

std::string bonds(const std::string& rows) {
    return "[StandardBondUseLimit]\n" + rows;
}

}  // namespace

// --- the fixed-income platform

TEST(FixedIncomeLimits, ANewRecordHoldsZeros) {
    const SHFixIncomeLimit limit;
    EXPECT_EQ(limit.doubleValue, 0);
    for (const int value :
         {limit.intValue1, limit.intValue2, limit.intValue3, limit.intValue4, limit.intValue5, limit.intValue6}) {
        EXPECT_EQ(value, 0);
    }
}

TEST(FixedIncomeLimits, EachKeySetsItsBondTradeTypeAndNoOther) {
    for (const TypeRow& row : kTypes) {
        LoadedStore store;
        const std::vector<bool> before = {!limitOf(store, 2), !limitOf(store, 3), !limitOf(store, 4),
                                          !limitOf(store, 5)};
        store.load(setting(row.key, "0.5,1,2,3,4,5," + std::to_string(row.type)));
        const auto limit = limitOf(store, row.type);
        ASSERT_TRUE(limit) << row.key;
        EXPECT_EQ(limit->doubleValue, 0.5);
        EXPECT_EQ(limit->intValue1, 1);
        EXPECT_EQ(limit->intValue2, 2);
        EXPECT_EQ(limit->intValue3, 3);
        EXPECT_EQ(limit->intValue4, 4);
        EXPECT_EQ(limit->intValue5, 5);
        EXPECT_EQ(limit->intValue6, row.type);
        for (const TypeRow& other : kTypes) {
            if (other.type == row.type) continue;
            EXPECT_EQ(!limitOf(store, other.type), before[static_cast<std::size_t>(other.type) - 2]) << row.key;
        }
    }
}

TEST(FixedIncomeLimits, EveryOtherTypeIsNull) {
    std::string text = "[setting]\n";
    for (const TypeRow& row : kTypes)
        text += std::string(row.key) + "=1,2,3,4,5,6,7\n";
    LoadedStore store(text);
    for (const int type : {-1, 0, 1, 6, 7, 100})
        EXPECT_FALSE(limitOf(store, type)) << type;
    for (const TypeRow& row : kTypes)
        EXPECT_TRUE(limitOf(store, row.type)) << row.key;
}

TEST(FixedIncomeLimits, BeforeAnyLoadEveryTypeIsNull) {
    LoadedStore store;
    for (const TypeRow& row : kTypes)
        EXPECT_FALSE(limitOf(store, row.type));
}

TEST(FixedIncomeLimits, SixFieldsLeaveTheTypeUnset) {
    LoadedStore store(setting("shloanbiddeallimit", "1,2,3,4,5,6"));
    EXPECT_FALSE(limitOf(store, 5));
}

TEST(FixedIncomeLimits, OnlySevenFieldsCountTheEmptyOnesIncluded) {
    for (const char* value : {"", "1", "1,2,3,4,5,6,7,8", "1,2,3,4,5,6,7,", ",,,,,", ";"}) {
        LoadedStore store(setting("shfixincomelimit", value));
        EXPECT_FALSE(limitOf(store, 2)) << value;
    }
    LoadedStore store(setting("shfixincomelimit", "0.5,,2,,4,,"));
    ASSERT_TRUE(limitOf(store, 2));
    EXPECT_EQ(limitOf(store, 2)->doubleValue, 0.5);
    EXPECT_EQ(limitOf(store, 2)->intValue1, 0);
    EXPECT_EQ(limitOf(store, 2)->intValue2, 2);
    EXPECT_EQ(limitOf(store, 2)->intValue6, 0);
}

TEST(FixedIncomeLimits, NumbersAreReadAsAtofAndAtoiDo) {
    LoadedStore store(setting("shfixincomelimit", "1.5e1x, 2,3.9,x,-5,+6,0x7"));
    const auto limit = limitOf(store, 2);
    ASSERT_TRUE(limit);
    EXPECT_EQ(limit->doubleValue, 15);
    EXPECT_EQ(limit->intValue1, 2);
    EXPECT_EQ(limit->intValue2, 3);
    EXPECT_EQ(limit->intValue3, 0);
    EXPECT_EQ(limit->intValue4, -5);
    EXPECT_EQ(limit->intValue5, 6);
    EXPECT_EQ(limit->intValue6, 0);
}

TEST(FixedIncomeLimits, TheTableIsNotClearedByALoad) {
    LoadedStore store(setting("shfixincomelimit", "1,2,3,4,5,6,7"));
    const auto first = limitOf(store, 2);
    for (const char* text : {"", "[setting]\nshfixincomelimit=\n", "[setting]\nshfixincomelimit=1,2\n",
                             "[setting]\nshloanbiddeallimit=9,9,9,9,9,9,9\n"}) {
        store.load(text);
        EXPECT_EQ(limitOf(store, 2), first) << text;
    }
    EXPECT_TRUE(limitOf(store, 5));
}

TEST(FixedIncomeLimits, AReloadReplacesTheRecordAndLeavesTheOneHandedOut) {
    LoadedStore store(setting("shfixincomelimit", "1,2,3,4,5,6,7"));
    const auto first = limitOf(store, 2);
    EXPECT_EQ(limitOf(store, 2), first) << "shared, not copied";
    store.load(setting("shfixincomelimit", "10,20,30,40,50,60,70"));
    EXPECT_NE(limitOf(store, 2), first);
    EXPECT_EQ(first->doubleValue, 1);
    EXPECT_EQ(first->intValue6, 7);
    EXPECT_EQ(limitOf(store, 2)->doubleValue, 10);
}

TEST(FixedIncomeLimits, TheKeysAreReadInTheirOrder) {
    LoadedStore store;
    std::vector<std::string> asked;
    standin::setQueryHook([&asked](const standin::Query& query) {
        for (const TypeRow& row : kTypes) {
            if (query.second == row.key) asked.emplace_back(query.second);
        }
    });
    store.load("");
    standin::setQueryHook(nullptr);
    EXPECT_EQ(asked, (std::vector<std::string>{"shfixincomelimit", "shloanenclickdeallimit", "shloanenquirydeallimit",
                                               "shloanbiddeallimit"}));
}

TEST(FixedIncomeLimits, TheReaderItselfReportsNothing) {
    LoadedStore store;
    standin::LogCapture log;
    standin::setEveryFileLogEnabled(true);
    // Six of the pieces are integers and one is not; the switch table reports that one.
    store.load(setting("shfixincomelimit", "x,2,3,4,5,6,7"));
    EXPECT_EQ(store.lastComplaints(), tests::kBadValueLine);
    EXPECT_TRUE(log.messages().empty());
}

// --- standard bonds

TEST(StandardBonds, AnUnknownCodeIsOne) {
    LoadedStore store;
    EXPECT_EQ(store->getStandardBondUseLimit("888880"), 1.0);
    store.load(bonds("888880=0.9\n"));
    EXPECT_EQ(store->getStandardBondUseLimit("888881"), 1.0);
    EXPECT_EQ(store->getStandardBondUseLimit(""), 1.0);
}

TEST(StandardBonds, ARowGivesItsRatio) {
    LoadedStore store(bonds("888880=0.9\n131990=1.25\nzero=0\nminus=-0.5\n"));
    EXPECT_EQ(store->getStandardBondUseLimit("888880"), 0.9);
    EXPECT_EQ(store->getStandardBondUseLimit("131990"), 1.25);
    EXPECT_EQ(store->getStandardBondUseLimit("zero"), 0.0);
    EXPECT_EQ(store->getStandardBondUseLimit("minus"), -0.5);
}

TEST(StandardBonds, ARatioThatCannotBeReadIsOne) {
    for (const char* value : {"", "x", "0.9x", "0.9,0.8", "--1"}) {
        LoadedStore store(bonds("888880=0.9\nab=" + std::string(value) + "\n"));
        EXPECT_EQ(store->getStandardBondUseLimit("ab"), 1.0) << value;
        EXPECT_EQ(store->getStandardBondUseLimit("AB"), 1.0) << value;
        EXPECT_EQ(store.lastComplaints(), "") << value;
    }
}

TEST(StandardBonds, ALowerCaseRowIsFoundByItselfAndInUpperCase) {
    LoadedStore store(bonds("gc001x=0.9\n"));
    EXPECT_EQ(store->getStandardBondUseLimit("gc001x"), 0.9);
    EXPECT_EQ(store->getStandardBondUseLimit("GC001X"), 0.9);
    EXPECT_EQ(store->getStandardBondUseLimit("Gc001x"), 1.0);
}

TEST(StandardBonds, AnUpperCaseRowIsNotFoundInLowerCase) {
    LoadedStore store(bonds("GC001=0.9\n"));
    EXPECT_EQ(store->getStandardBondUseLimit("GC001"), 0.9);
    EXPECT_EQ(store->getStandardBondUseLimit("gc001"), 1.0);
}

TEST(StandardBonds, TheRowMetFirstKeepsItsNumber) {
    LoadedStore store(bonds("gc001=0.9\nGC001=0.8\n"));
    EXPECT_EQ(store->getStandardBondUseLimit("GC001"), 0.9);
    EXPECT_EQ(store->getStandardBondUseLimit("gc001"), 0.9);
    store.load(bonds("GC001=0.8\ngc001=0.9\nGc001=0.7\n"));
    EXPECT_EQ(store->getStandardBondUseLimit("GC001"), 0.8);
    EXPECT_EQ(store->getStandardBondUseLimit("gc001"), 0.9);
    EXPECT_EQ(store->getStandardBondUseLimit("Gc001"), 0.7);
}

TEST(StandardBonds, BytesOutsideAsciiAreKept) {
    LoadedStore store(bonds("债gc=0.9\n"));
    EXPECT_EQ(store->getStandardBondUseLimit("债gc"), 0.9);
    EXPECT_EQ(store->getStandardBondUseLimit("债GC"), 0.9);
}

TEST(StandardBonds, UpperCaseIsThatOfTheGlobalLocale) {
    // A facet that gives one more byte an upper case than the classic locale does.
    class Marked : public std::ctype<char> {
        char do_toupper(char character) const override {
            return character == '~' ? '!' : std::ctype<char>::do_toupper(character);
        }
        const char* do_toupper(char* from, const char* to) const override {
            for (; from != to; ++from)
                *from = do_toupper(*from);
            return to;
        }
    };
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Marked));
    LoadedStore store(bonds("a~=0.9\n"));
    std::locale::global(before);
    EXPECT_EQ(store->getStandardBondUseLimit("A!"), 0.9);
}

TEST(StandardBonds, AReloadBuildsTheTableAnew) {
    LoadedStore store(bonds("gc001=0.9\n"));
    store.load(bonds("gc002=0.8\n"));
    EXPECT_EQ(store->getStandardBondUseLimit("gc001"), 1.0);
    EXPECT_EQ(store->getStandardBondUseLimit("GC001"), 1.0);
    EXPECT_EQ(store->getStandardBondUseLimit("gc002"), 0.8);
    store.load("[standardbonduselimit]\ngc002=0.8\n");
    EXPECT_EQ(store->getStandardBondUseLimit("gc002"), 1.0);
}

TEST(StandardBonds, QuestionsNeedNoHeap) {
    LoadedStore store(bonds("gc001=0.9\n") + setting("shfixincomelimit", "1,2,3,4,5,6,7"));
    const std::string code = "gc001";
    const std::string unknown = "gc002";
    const tests::Allocations heap;
    store->getStandardBondUseLimit(code);
    store->getStandardBondUseLimit(unknown);
    limitOf(store, 2);
    limitOf(store, 9);
    const long made = heap.made();
    EXPECT_EQ(made, 0);
}
