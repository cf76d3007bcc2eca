#include "traderbase/base/config/internal/text/joinedtext.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

using ttservice::internal::compare;
using ttservice::internal::JoinedText;
using ttservice::internal::JoinedTextLess;

namespace {

int sign(int number) {
    return (number > 0) - (number < 0);
}

// All texts of up to three characters from these, which include a byte above 127.
std::vector<std::string> texts() {
    std::vector<std::string> all = {""};
    for (std::size_t from = 0, length = 0; length < 3; ++length) {
        const std::size_t end = all.size();
        for (; from < end; ++from) {
            for (const char letter : {'a', '_', '\xE8'})
                all.push_back(all[from] + letter);
        }
    }
    return all;
}

}  // namespace

TEST(JoinedText, ComparesAsTheTwoTextsWrittenTogetherDo) {
    const std::vector<std::string> all = texts();
    ASSERT_EQ(all.size(), 40U);
    for (const std::string& head : all) {
        for (const std::string& tail : all) {
            for (const std::string& text : all) {
                ASSERT_EQ(sign(compare(text, JoinedText{head, tail})), sign(text.compare(head + tail)))
                    << text << " and " << head << "+" << tail;
            }
        }
    }
}

TEST(JoinedText, FindsItsTextInAnOrderedContainer) {
    const std::set<std::string, JoinedTextLess> keys = {"P1_stock", "P1_credit", "P_stock", "_stock"};
    EXPECT_EQ(keys.count(JoinedText{"P1", "_stock"}), 1U);
    EXPECT_EQ(keys.count(JoinedText{"P1_", "stock"}), 1U);
    EXPECT_EQ(keys.count(JoinedText{"", "_stock"}), 1U);
    EXPECT_EQ(keys.count(JoinedText{"P", "_credit"}), 0U);
    EXPECT_EQ(keys.count(JoinedText{"P1_stock", "x"}), 0U);
    EXPECT_EQ(std::vector<std::string>(keys.begin(), keys.end()),
              (std::vector<std::string>{"P1_credit", "P1_stock", "P_stock", "_stock"}));
}
