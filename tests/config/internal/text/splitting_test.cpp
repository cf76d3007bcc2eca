#include "traderbase/base/config/internal/text/splitting.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include <boost/algorithm/string.hpp>

using namespace ttservice::internal;

namespace {

using Pieces = std::vector<std::string>;

Pieces keepEmpty(const std::string& text) {
    Pieces found;
    splitKeepEmpty(text, ';', [&](std::string_view piece) { found.emplace_back(piece); });
    return found;
}

Pieces dropEmpty(const std::string& text) {
    Pieces found;
    splitDropEmpty(text, ';', [&](std::string_view piece) { found.emplace_back(piece); });
    return found;
}

Pieces squeezed(const std::string& text) {
    Pieces found;
    splitSqueezed(text, ';', [&](std::string_view piece) { found.emplace_back(piece); });
    return found;
}

}  // namespace

TEST(Splitting, DiffersInTheTreatmentOfEmptyPieces) {
    struct Row {
        std::string text;
        Pieces kept, dropped, squeezed;
    };
    const std::vector<Row> rows = {
        {"", {""}, {}, {""}},
        {"a", {"a"}, {"a"}, {"a"}},
        {";", {"", ""}, {}, {"", ""}},
        {";;", {"", "", ""}, {}, {"", ""}},
        {"a;;b", {"a", "", "b"}, {"a", "b"}, {"a", "b"}},
        {";a;b;", {"", "a", "b", ""}, {"a", "b"}, {"", "a", "b", ""}},
        {";;a;;", {"", "", "a", "", ""}, {"a"}, {"", "a", ""}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(keepEmpty(row.text), row.kept) << row.text;
        EXPECT_EQ(dropEmpty(row.text), row.dropped) << row.text;
        EXPECT_EQ(squeezed(row.text), row.squeezed) << row.text;
    }
}

TEST(Splitting, AgreesWithBoostsSplit) {
    std::mt19937 random(7);
    for (int i = 0; i < 100000; ++i) {
        std::string text(random() % 10, ' ');
        for (char& c : text)
            c = ";;a1"[random() % 4];
        Pieces expected;
        boost::split(expected, text, boost::is_any_of(";"), boost::token_compress_off);
        ASSERT_EQ(keepEmpty(text), expected) << text;
        boost::split(expected, text, boost::is_any_of(";"), boost::token_compress_on);
        ASSERT_EQ(squeezed(text), expected) << text;
    }
}

TEST(Splitting, PiecesExactlyTellsTheCount) {
    std::array<std::string_view, 2> fields;
    EXPECT_TRUE(piecesExactly("a,b", ',', fields));
    EXPECT_EQ(fields[0], "a");
    EXPECT_EQ(fields[1], "b");
    EXPECT_TRUE(piecesExactly(",", ',', fields));
    EXPECT_FALSE(piecesExactly("a", ',', fields));
    EXPECT_FALSE(piecesExactly("a,b,", ',', fields));
    EXPECT_FALSE(piecesExactly("", ',', fields));
}

TEST(Splitting, PiecesAreAllPiecesInOrder) {
    EXPECT_EQ(pieces("a,,b", ','), (std::vector<std::string_view>{"a", "", "b"}));
    EXPECT_EQ(pieces("", ','), (std::vector<std::string_view>{""}));
}
