#include "standin/settingstext.h"

#include <gmock/gmock.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/tempfile.h"

namespace standin {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

std::string valueOf(const SettingsText& text, std::string_view section, std::string_view key) {
    const SettingsEntry* entry = text.findEntry(section, key);
    return entry == nullptr ? "(none)" : std::string(entry->value);
}

// The value of key "k" in section "s" of a text.
std::string valueIn(const std::string& bytes) {
    return valueOf(SettingsText(bytes), "s", "k");
}

std::vector<std::string> keysOf(const SettingsText& text, std::string_view section) {
    std::vector<std::string> keys;
    const SettingsSection* found = text.findSection(section);
    if (found == nullptr) return {"(no section)"};
    for (const SettingsEntry& entry : found->entries)
        keys.push_back(std::string(entry.key) + (entry.repeated ? "!" : ""));
    return keys;
}

std::vector<std::string> ignoredOf(const SettingsText& text) {
    static const std::map<IgnoredReason, std::string> names = {{IgnoredReason::kNoEqualSign, "no equal sign"},
                                                               {IgnoredReason::kNoKey, "no key"},
                                                               {IgnoredReason::kOpenHeader, "open header"},
                                                               {IgnoredReason::kBehindHeader, "behind header"}};
    std::vector<std::string> all;
    for (const IgnoredLine& line : text.ignoredLines()) {
        all.push_back(std::to_string(line.line) + ":" + std::to_string(line.column) + " " + names.at(line.reason) +
                      " '" + std::string(line.text) + "'");
    }
    return all;
}

TEST(SettingsText, ValueIsEverythingAfterTheFirstEqualSign) {
    const std::pair<std::string, std::string> rows[] = {
        {"[s]\nk=v\n", "v"},
        {"[s]\nk=v", "v"},
        {"[s]\nk=", ""},
        {"[s]\nk=\n", ""},
        {"[s]\nk=a=b==c\n", "a=b==c"},
        {"[s]\nk==\n", "="},
        {"[s]\nk=股\n", "股"},
        {"[s]\nk=\xff\xfe\x80\n", "\xff\xfe\x80"},
        {"[s]\nkk=v\n", "(none)"},
        {"[s]\nK=v\n", "(none)"},
        {"[S]\nk=v\n", "(none)"},
        {"[s]\n", "(none)"},
        {"", "(none)"},
        {"\n\n\n", "(none)"},
    };
    for (const auto& [bytes, value] : rows)
        EXPECT_EQ(valueIn(bytes), value) << bytes;
}

TEST(SettingsText, BlanksAroundNamesKeysAndValuesAreCutOffAndInsideKept) {
    EXPECT_EQ(valueIn("  [ \t s\t ]  \n \tk\t =\t  v \t\n"), "v");
    EXPECT_EQ(valueIn("[s]\nk =  a \t b  \n"), "a \t b");
    EXPECT_EQ(valueIn("[s]\nk = \t \n"), "");
    EXPECT_EQ(valueOf(SettingsText("[a b]\nc  d = 1\n"), "a b", "c  d"), "1");
}

TEST(SettingsText, OnlySpaceAndTabAreBlanks) {
    EXPECT_EQ(valueIn("[s]\nk=\vv\f\n"), "\vv\f");
    EXPECT_EQ(valueIn("[s]\nk=\xC2\xA0v\n"), "\xC2\xA0v");
    EXPECT_EQ(valueIn("[s]\n\vk=v\n"), "(none)");
}

TEST(SettingsText, LineIsACommentWhenItsFirstNonBlankIsSemicolonOrHash) {
    const SettingsText text("; k=0\n# k=0\n[s]\n \t;k=1\n  #k=2\n;[t]\nk=3\n");
    EXPECT_EQ(valueOf(text, "s", "k"), "3");
    EXPECT_THAT(ignoredOf(text), IsEmpty());
    EXPECT_THAT(text.entriesOutside(), IsEmpty());
    EXPECT_EQ(text.sections().size(), 1u);
}

TEST(SettingsText, NothingInsideALineStartsAComment) {
    EXPECT_EQ(valueIn("[s]\nk=1 ; 2 # 3\n"), "1 ; 2 # 3");
    EXPECT_EQ(valueIn("[s]\nk=;\n"), ";");
    EXPECT_EQ(valueOf(SettingsText("[a;b]\nk#1=2\n"), "a;b", "k#1"), "2");
    EXPECT_EQ(valueIn("[s]\nk=1//2\n"), "1//2");
}

TEST(SettingsText, ThereAreNoQuotesNoEscapesAndNoContinuedLines) {
    EXPECT_EQ(valueIn("[s]\nk=\" v \"\n"), "\" v \"");
    EXPECT_EQ(valueIn("[s]\nk=a\\n\\\nb=1\n"), "a\\n\\");
    EXPECT_EQ(valueIn("[s]\nk=1\n  2\n"), "1");
    EXPECT_EQ(valueIn("[s]\nk:1\nk=2\n"), "2");
    EXPECT_EQ(valueIn("[s]\nk=<<<END\nEND\n"), "<<<END");
}

TEST(SettingsText, LinesEndWithLineFeedOrCarriageReturnLineFeed) {
    const SettingsText text("[s]\r\nk=v\r\nl = w \r\n\r\nm=x\n");
    EXPECT_EQ(valueOf(text, "s", "k"), "v");
    EXPECT_EQ(valueOf(text, "s", "l"), "w");
    EXPECT_EQ(valueOf(text, "s", "m"), "x");
    EXPECT_THAT(ignoredOf(text), IsEmpty());
}

TEST(SettingsText, CarriageReturnAloneIsAnOrdinaryByteEvenAtTheVeryEnd) {
    EXPECT_EQ(valueIn("[s]\nk=a\rb\n"), "a\rb");
    EXPECT_EQ(valueIn("[s]\nk=a\r\r\n"), "a\r");
    EXPECT_EQ(valueIn("[s]\nk=a\r"), "a\r");
    EXPECT_EQ(valueIn("[s]\rk=a\n"), "(none)");
    EXPECT_THAT(ignoredOf(SettingsText("[s]\n\r")), ElementsAre("2:1 no equal sign '\r'"));
}

TEST(SettingsText, ByteOrderMarkIsSkippedAtTheStartOfTheTextOnly) {
    EXPECT_EQ(valueIn("\xEF\xBB\xBF[s]\nk=v\n"), "v");
    EXPECT_EQ(valueIn("\xEF\xBB\xBF\xEF\xBB\xBF[s]\nk=v\n"), "(none)");
    EXPECT_EQ(valueIn("[s]\n\xEF\xBB\xBFk=v\n"), "(none)");
    EXPECT_EQ(valueIn("\xEF\xBB[s]\nk=v\n"), "(none)");
    EXPECT_EQ(SettingsText("\xEF\xBB\xBF[s]").sections().at(0).headers.at(0).column, 1u);
    EXPECT_EQ(SettingsText("\xEF\xBB\xBF").bytes(), "");
}

TEST(SettingsText, KeysBeforeTheFirstHeaderBelongToNoSection) {
    const SettingsText text("k=0\nl=0\nk=1\n[s]\nk=2\n");
    EXPECT_EQ(valueOf(text, "s", "k"), "2");
    EXPECT_EQ(valueOf(text, "", "k"), "(none)");
    EXPECT_EQ(text.findSection(""), nullptr);
    ASSERT_EQ(text.entriesOutside().size(), 3u);
    EXPECT_EQ(text.entriesOutside()[2].value, "1");
    EXPECT_EQ(text.entriesOutside()[2].line, 3u);
}

TEST(SettingsText, EmptyBracketsOpenTheSectionWithTheEmptyName) {
    for (const char* header : {"[]", "[ \t ]", " []"}) {
        const SettingsText text("k=0\n"s + header + "\nk=1\n");
        EXPECT_EQ(valueOf(text, "", "k"), "1") << header;
    }
}

TEST(SettingsText, SectionThatAppearsAgainContinuesTheEarlierOne) {
    const SettingsText text("[a]\nk=1\n[b]\nk=2\n[a]\nl=3\nk=4\n[ b ]\nm=5\n");
    ASSERT_EQ(text.sections().size(), 2u);
    EXPECT_EQ(text.sections()[0].name, "a");
    EXPECT_EQ(text.sections()[0].headers.size(), 2u);
    EXPECT_EQ(text.sections()[0].headers[1].line, 5u);
    EXPECT_THAT(keysOf(text, "a"), ElementsAre("k", "l", "k!"));
    EXPECT_THAT(keysOf(text, "b"), ElementsAre("k", "m"));
    EXPECT_EQ(valueOf(text, "a", "k"), "1");
    EXPECT_EQ(valueOf(text, "a", "l"), "3");
    EXPECT_EQ(valueOf(text, "b", "m"), "5");
}

TEST(SettingsText, FirstValueOfARepeatedKeyCounts) {
    const SettingsText text("[s]\nk=1\nK=2\n k = 3\nk=\n[t]\nk=4\n");
    EXPECT_EQ(valueOf(text, "s", "k"), "1");
    EXPECT_EQ(valueOf(text, "s", "K"), "2");
    EXPECT_EQ(valueOf(text, "t", "k"), "4");
    EXPECT_THAT(keysOf(text, "s"), ElementsAre("k", "K", "k!", "k!"));
    EXPECT_EQ(valueOf(SettingsText("[s]\nk=\nk=1\n"), "s", "k"), "");
}

TEST(SettingsText, MeaninglessLinesAreKeptWithTheirPlaceAndReason) {
    const SettingsText text(
        "word\n[s]\n  two words \nk=1\n=v\n \t = v\n[open\n [open k=2\n=\nl=3\n[t] rest ; x\n[u]]\n");
    EXPECT_THAT(ignoredOf(text),
                ElementsAre("1:1 no equal sign 'word'", "3:3 no equal sign 'two words'", "5:1 no key '=v'",
                            "6:4 no key '= v'", "7:1 open header '[open'", "8:2 open header '[open k=2'",
                            "9:1 no key '='", "11:5 behind header 'rest ; x'", "12:4 behind header ']'"));
    EXPECT_THAT(keysOf(text, "s"), ElementsAre("k", "l"));
    EXPECT_EQ(text.findSection("open"), nullptr);
}

TEST(SettingsText, HeaderNameEndsAtTheFirstClosingBracketAndTheRestOfTheLineIsIgnored) {
    const SettingsText text("[a]k=1\nk=2\n[b];x\nk=3\n[[c]]\nk=4\n");
    EXPECT_EQ(valueOf(text, "a", "k"), "2");
    EXPECT_EQ(valueOf(text, "b", "k"), "3");
    EXPECT_EQ(valueOf(text, "[c", "k"), "4");
}

TEST(SettingsText, BracketAfterTheFirstNonBlankIsPartOfTheKey) {
    EXPECT_EQ(valueOf(SettingsText("[s]\nk[0]=1\n"), "s", "k[0]"), "1");
    EXPECT_EQ(valueOf(SettingsText("[s]\n]=1\n"), "s", "]"), "1");
}

TEST(SettingsText, NulIsAByteLikeAnyOther) {
    const SettingsText text("[s\0t]\nk\0=v\0w\n\0\nl=1\n"s);
    EXPECT_EQ(valueOf(text, "s\0t"s, "k\0"s), "v\0w"s);
    EXPECT_EQ(valueOf(text, "s\0t"s, "k"), "(none)");
    EXPECT_EQ(valueOf(text, "s\0t"s, "l"), "1");
    EXPECT_EQ(valueOf(text, "s", "l"), "(none)");
    EXPECT_EQ(text.ignoredLines().size(), 1u);
}

TEST(SettingsText, LinesOfAnyLengthAreRead) {
    const std::string longText(3000000, 'x');
    const SettingsText text("[" + longText + "]\n" + longText + "=" + longText + "\nk=1\n");
    EXPECT_EQ(valueOf(text, longText, longText), longText);
    EXPECT_EQ(valueOf(text, longText, "k"), "1");
}

TEST(SettingsText, PlacesOfHeadersKeysAndValuesAreCountedInBytesFromOne) {
    const SettingsText text("\n  [ 股 ]\r\n\tk1 =  v1\nk2=\nk3 =  \n");
    ASSERT_EQ(text.sections().size(), 1u);
    const SettingsSection& section = text.sections()[0];
    ASSERT_EQ(section.headers.size(), 1u);
    EXPECT_EQ(section.headers[0].line, 2u);
    EXPECT_EQ(section.headers[0].column, 3u);
    EXPECT_EQ(section.headers[0].nameColumn, 5u);
    struct Row {
        const char* key;
        std::size_t line, keyColumn, valueColumn;
    };
    const Row rows[] = {{"k1", 3, 2, 8}, {"k2", 4, 1, 4}, {"k3", 5, 1, 5}};
    for (const Row& row : rows) {
        const SettingsEntry* entry = text.findEntry("股", row.key);
        ASSERT_NE(entry, nullptr) << row.key;
        EXPECT_EQ(entry->line, row.line) << row.key;
        EXPECT_EQ(entry->keyColumn, row.keyColumn) << row.key;
        EXPECT_EQ(entry->valueColumn, row.valueColumn) << row.key;
    }
}

TEST(SettingsText, ViewsPointIntoItsBufferAlsoAfterAMove) {
    SettingsText first("[s]\nk=v\n");
    const SettingsText second(std::move(first));
    EXPECT_EQ(valueOf(second, "s", "k"), "v");
    const SettingsEntry* entry = second.findEntry("s", "k");
    ASSERT_NE(entry, nullptr);
    const std::string_view bytes = second.bytes();
    EXPECT_GE(entry->key.data(), bytes.data());
    EXPECT_LE(entry->value.data() + entry->value.size(), bytes.data() + bytes.size());
    SettingsText third;
    EXPECT_EQ(third.findEntry("s", "k"), nullptr);
    EXPECT_EQ(third.bytes(), "");
    third = SettingsText("[s]\nk=w\n");
    EXPECT_EQ(valueOf(third, "s", "k"), "w");
}

TEST(SettingsText, MillionKeysAndManySectionsAreAllFound) {
    std::string bytes;
    for (int section = 0; section < 1000; ++section) {
        bytes += "[section" + std::to_string(section) + "]\n";
        for (int key = 0; key < 1000; ++key) {
            bytes += "key" + std::to_string(key) + "=" + std::to_string(section * 1000 + key) + "\n";
        }
    }
    const SettingsText text(std::move(bytes));
    ASSERT_EQ(text.sections().size(), 1000u);
    for (int number = 0; number < 1000000; number += 7) {
        const SettingsEntry* entry =
            text.findEntry("section" + std::to_string(number / 1000), "key" + std::to_string(number % 1000));
        ASSERT_NE(entry, nullptr) << number;
        ASSERT_EQ(entry->value, std::to_string(number));
    }
    EXPECT_EQ(text.findEntry("section1000", "key0"), nullptr);
    EXPECT_EQ(text.findEntry("section999", "key1000"), nullptr);
}

TEST(SettingsText, LoadAnswersTheProblemAndIsThenEmpty) {
    const tests::TempFolder folder;
    SettingsText text;
    EXPECT_EQ(SettingsText::load(folder.write("a.ini", "[s]\nk=v\n"), text), FileProblem::kNone);
    EXPECT_EQ(valueOf(text, "s", "k"), "v");
    EXPECT_EQ(SettingsText::load(folder.path("none.ini"), text), FileProblem::kMissing);
    EXPECT_THAT(text.sections(), IsEmpty());
}

}  // namespace
}  // namespace standin
