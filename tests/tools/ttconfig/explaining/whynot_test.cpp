// Edits that change an answer: which one is proposed, and how a wanted answer may be written.

#include "ttconfig/explaining/whynot.h"

#include <gmock/gmock.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using ttconfig::Answer;
using ttconfig::Arguments;
using ttconfig::Edit;
using ttconfig::Explainer;
using ttconfig::Wanted;

std::string shown(const standin::SettingsText& text, const Edit& edit) {
    const ttconfig::EditLines lines = ttconfig::linesOf(text, edit);
    std::string all = std::to_string(edit.line);
    for (const std::string& line : lines.before)
        all += " -" + line;
    for (const std::string& line : lines.after)
        all += " +" + line;
    return all;
}

TEST(WhyNot, TellsTheSmallestEdit) {
    const struct {
        const char* settings;
        const char* call;
        Arguments arguments;
        const char* wanted;
        const char* edit;
        const char* edited;
    } rows[] = {
        // a switch: a piece added, removed or corrected, a line added, a section added
        {"[setting]\nk=8\n", "isSomePt", {"k", 12}, "true", "2 -k=8 +k=8,12", "[setting]\nk=8,12\n"},
        {"[setting]\nk=8,12,9\n", "isSomePt", {"k", 12}, "false", "2 -k=8,12,9 +k=8,9", "[setting]\nk=8,9\n"},
        {"[setting]\nk=12,8,+12\n", "isSomePt", {"k", 12}, "false", "2 -k=12,8,+12 +k=8", "[setting]\nk=8\n"},
        {"[setting]\nk=8, 12\n", "isSomePt", {"k", 12}, "true", "2 -k=8, 12 +k=8,12", "[setting]\nk=8,12\n"},
        {"[setting]\nk=8,\n", "isSomePt", {"k", 12}, "true", "2 -k=8, +k=8,12", "[setting]\nk=8,12\n"},
        {"[setting]\nk=\n", "isSomePt", {"k", 12}, "true", "2 -k= +k=12", "[setting]\nk=12\n"},
        {"[setting]\na=1\n[b]\n", "isSomePt", {"k", 12}, "true", "3 +k=12", "[setting]\na=1\nk=12\n[b]\n"},
        {"[setting]\n", "isSomePt", {"k", 12}, "true", "2 +k=12", "[setting]\nk=12\n"},
        {"[b]\nx=1\n", "isSomePt", {"k", 12}, "true", "3 +[setting] +k=12", "[b]\nx=1\n[setting]\nk=12\n"},
        {"", "isSomePt", {"k", 12}, "true", "1 +[setting] +k=12", "[setting]\nk=12\n"},
        // line ends: as on the line before; none at the end of the text
        {"[setting]\r\na=1\r\n", "isSomePt", {"k", 12}, "true", "3 +k=12", "[setting]\r\na=1\r\nk=12\r\n"},
        {"[setting]\na=1", "isSomePt", {"k", 12}, "true", "3 +k=12", "[setting]\na=1\nk=12"},
        {"[b]\nx=1", "isSomePt", {"k", 12}, "true", "3 +[setting] +k=12", "[b]\nx=1\n[setting]\nk=12\n"},
        // only the platform's value
        {"[setting]\nrenewalpts=12:1\n",
         "getRenewalPts",
         {12},
         "2",
         "2 -renewalpts=12:1 +renewalpts=12:2",
         "[setting]\nrenewalpts=12:2\n"},
        {"[setting]\nrenewalpts=12:1;12:2\n",
         "getRenewalPts",
         {12},
         "1",
         "2 -renewalpts=12:1;12:2 +renewalpts=12:1;12:1",
         "[setting]\nrenewalpts=12:1;12:1\n"},
        // a repeated key: the edit changes the earlier value, which counts
        {"[setting]\nrefLimit=\nrefLimit=70000\n",
         "getRefLimit",
         {},
         "70000",
         "2 -refLimit= +refLimit=70000",
         "[setting]\nrefLimit=70000\nrefLimit=70000\n"},
        {"[setting]\nisshowmaxcanorder=1\n",
         "isShowMaxCanOrder",
         {},
         "false",
         "2 -isshowmaxcanorder=1 +isshowmaxcanorder=0",
         "[setting]\nisshowmaxcanorder=0\n"},
        // whole lists: pieces that stay are kept as written
        {"[setting]\nk=8,x,+15,9\n",
         "getPts",
         {"k"},
         "8,12,9",
         "2 -k=8,x,+15,9 +k=8,x,+12,9",
         "[setting]\nk=8,x,+12,9\n"},
        {"[setting]\nk=8\n", "getPts", {"k"}, "[8,8]", "2 -k=8 +k=8,8", "[setting]\nk=8,8\n"},
        {"[setting]\na=1\nk=1,2,3,4,5,6\n",
         "getAllpts",
         {},
         "a:[1],b:[1,2,3,4,5,6]",
         "3 -k=1,2,3,4,5,6 +b=1,2,3,4,5,6",
         "[setting]\na=1\nb=1,2,3,4,5,6\n"},
        {"[setting]\nsamrtalgotypes=B;A;B\n",
         "getAlgoTypes",
         {},
         "A,B,C",
         "2 -samrtalgotypes=B;A;B +samrtalgotypes=B;A;B;C",
         "[setting]\nsamrtalgotypes=B;A;B;C\n"},
        {"[setting]\nt0algotypes=a:b;x;c:d\n",
         "getT0Strategy",
         {},
         "[a,b],[e,f],[c,d]",
         "2 -t0algotypes=a:b;x;c:d +t0algotypes=a:b;x;e:f;c:d",
         "[setting]\nt0algotypes=a:b;x;e:f;c:d\n"},
        {"[setting]\netfbrokerclienttag=12\n",
         "getETFBrokerCLientQueryTimes",
         {},
         "93000",
         "2 -etfbrokerclienttag=12 +etfbrokerclienttag=12:93000",
         "[setting]\netfbrokerclienttag=12:93000\n"},
        // whole records: fields that already match are kept as written
        {"[setting]\nshfixincomelimit=+1,2,03,4,5,6,7\n",
         "getSHFixIncomeLimit",
         {2},
         "@:1,doubleValue:1.0,intValue1:2,intValue2:3,intValue3:4,intValue4:5,intValue5:60,intValue6:7",
         "2 -shfixincomelimit=+1,2,03,4,5,6,7 +shfixincomelimit=+1,2,03,4,5,60,7",
         "[setting]\nshfixincomelimit=+1,2,03,4,5,60,7\n"},
        {"[setting]\nalgomultcontractsetting=P1:x,1.50,7,3,1;P2:;P1:y,1,1,1,0\n",
         "getContractInfo",
         {"P1", true},
         R"({"@":7,"intValue":3,"doubleValue":1.5,"longValue":8,"productId":"P1","textValue":"x","isCredit":true})",
         "2 -algomultcontractsetting=P1:x,1.50,7,3,1;P2:;P1:y,1,1,1,0 "
         "+algomultcontractsetting=P1:x,1.50,8,3,1;P2:;P1:y,1,1,1,0",
         "[setting]\nalgomultcontractsetting=P1:x,1.50,8,3,1;P2:;P1:y,1,1,1,0\n"},
        {"[setting]\nalgomultcontractsetting=P1:x,1,7,3,1;P2:;P1:y,1,1,1,0\n",
         "getContractInfo",
         {3},
         "",
         "2 -algomultcontractsetting=P1:x,1,7,3,1;P2:;P1:y,1,1,1,0 +algomultcontractsetting=P2:;P1:y,1,1,1,0",
         "[setting]\nalgomultcontractsetting=P2:;P1:y,1,1,1,0\n"},
        {"[StkExchangeRateLimit]\nSH-600000=1,2,3,4,5,6\n",
         "getRateLimitPtr",
         {"SH", "600000"},
         "fields:[1.0,2.0,3.0,4.0,5.0,6.0,7]",
         "2 -SH-600000=1,2,3,4,5,6 +SH-600000=1,2,3,4,5,6,7",
         "[StkExchangeRateLimit]\nSH-600000=1,2,3,4,5,6,7\n"},
        {"[StkExchangeRateLimit]\nSH-1=1,2,3,4,5,6,7\n",
         "getRateLimitPtr",
         {"SH", "2"},
         "1,2,3,4,5,6,7",
         "2 -SH-1=1,2,3,4,5,6,7 +SH-1,SH-2=1,2,3,4,5,6,7",
         "[StkExchangeRateLimit]\nSH-1,SH-2=1,2,3,4,5,6,7\n"},
        // a line inserted before one that would take longer to change
        {"[setting]\nk=1,2,3,4,5,6,7,8,9\n",
         "getPts",
         {"k"},
         "77",
         "2 +k=77",
         "[setting]\nk=77\nk=1,2,3,4,5,6,7,8,9\n"},
        // rows
        {"[StandardBondUseLimit]\nabc=0.7\n",
         "getStandardBondUseLimit",
         {"ABC"},
         "0.8",
         "2 -abc=0.7 +abc=0.8",
         "[StandardBondUseLimit]\nabc=0.8\n"},
        {"[StkExchangeOrderLimit]\nSH-1=1,a\nSH-1,SH-2=3,a\n",
         "getOrderLimit",
         {"SH", "1", -1},
         "4,a",
         "3 -SH-1,SH-2=3,a +SH-1,SH-2=4,a",
         "[StkExchangeOrderLimit]\nSH-1=1,a\nSH-1,SH-2=4,a\n"},
    };
    for (const auto& row : rows) {
        const standin::SettingsText text{std::string(row.settings)};
        const auto found = ttconfig::whyNot(Explainer(text), row.call, row.arguments, Wanted(row.wanted));
        ASSERT_TRUE(found.edit) << row.settings << found.whyNone;
        EXPECT_EQ(shown(text, *found.edit), row.edit);
        EXPECT_EQ(ttconfig::editedText(text, *found.edit), row.edited);
        EXPECT_EQ(found.whyNone, "");
    }
}

std::string repeated(const char* piece, int count) {
    std::string all;
    for (int i = 0; i < count; ++i)
        all += piece;
    return all;
}

// The bytes removed and inserted.
std::string changed(const standin::SettingsText& text, const Edit& edit) {
    return "-" + std::string(text.bytes().substr(edit.offset, edit.length)) + " +" + edit.replacement;
}

TEST(WhyNot, TellsTheSmallestEditOfALongValue) {
    const std::string ids = repeated("8,", 50);
    const struct {
        std::string settings;
        const char* call;
        Arguments arguments;
        std::string wanted;
        const char* changed;
    } rows[] = {
        {"[setting]\nk=" + ids + "12," + ids + "\n", "getPts", {"k"}, ids + "13," + repeated("8,", 49) + "8", "-2 +3"},
        {"[setting]\nk=" + ids + "12," + ids + "\n", "getPts", {"k"}, ids + ids + "8", "-12 +8"},
        {"[setting]\nsamrtalgotypes=" + repeated("A;", 50) + "C\n", "getAlgoTypes", {}, "A,B,C", "- +;B"},
        {"[setting]\nalgomultcontractsetting=" + repeated("A:;", 30) + "B:x,1,1,1,1;" + repeated("C:;", 30) + "\n",
         "getContractInfo",
         {"B", true},
         "none",
         "-B:x,1,1,1,1; +"},
        // too long to be taken apart
        {"[setting]\nalgomultcontractsetting=" + repeated("A:;", 1100000) + "\n",
         "getContractInfo",
         {"B", true},
         R"({"intValue":0,"doubleValue":2.5,"longValue":0,"productId":"B","textValue":"","isCredit":true})",
         "- +;B:,2.5,0,0,1"},
    };
    for (const auto& row : rows) {
        const standin::SettingsText text{std::string(row.settings)};
        const auto found = ttconfig::whyNot(Explainer(text), row.call, row.arguments, Wanted(row.wanted));
        ASSERT_TRUE(found.edit) << row.wanted.substr(0, 100) << found.whyNone;
        EXPECT_EQ(changed(text, *found.edit), row.changed) << row.wanted.substr(0, 100);
        EXPECT_EQ(found.edit->reach, "");
    }
}

TEST(WhyNot, TellsANarrowerEditWhereTheSmallestAffectsOtherQuestions) {
    const standin::SettingsText text(std::string("[setting]\nrenewalpts=15:3;1\n"));
    const auto found = ttconfig::whyNot(Explainer(text), "getRenewalPts", {12}, Wanted("2"));
    ASSERT_TRUE(found.edit && found.narrower);
    EXPECT_EQ(shown(text, *found.edit), "2 -renewalpts=15:3;1 +renewalpts=15:3;2");
    EXPECT_EQ(found.edit->reach, "every platform that the value does not name");
    EXPECT_EQ(shown(text, *found.narrower), "2 -renewalpts=15:3;1 +renewalpts=15:3;1;12:2");
    EXPECT_EQ(found.narrower->reach, "");
}

TEST(WhyNot, SaysWhyNoEditCan) {
    const standin::SettingsText text(std::string("[setting]\nneedmaxamount=12\nfinenablebailratio=0.5\n"));
    const struct {
        const char* call;
        Arguments arguments;
        const char* wanted;
        const char* why;
    } rows[] = {
        {"isNeedMaxAmountPts", {12}, "true", "a local override answers"},
        {"getFinEnableBailRatio", {12}, "0.5", "always answers so"},
        {"isBuyOpt", {0}, "false", "always answers so"},
        {"getDelayPushTime", {}, "31", "only the client"},
        {"getStockUnit", {"SH", "600000"}, "x", "a rule about the instrument"},
        {"getTradeMinUnit", {"US", "1"}, "77", "a rule about the instrument"},
        {"getTradingTime", {"SH"}, "[[1,2]]", "the market-time script"},
        {"getHgtSgtPriceDiff", {}, " blank in front", "no change of one line"},
        {"getAllpts", {}, R"({"a":[1],"b":[2]})", "no change of one line"},
    };
    for (const auto& row : rows) {
        const Explainer explainer(text, {{"needmaxamount", false}});
        const auto found = ttconfig::whyNot(explainer, row.call, row.arguments, Wanted(row.wanted));
        EXPECT_FALSE(found.edit) << row.call;
        EXPECT_THAT(found.whyNone, testing::HasSubstr(row.why)) << row.call;
    }
}

TEST(WhyNot, SaysThatTheAnswerIsAlreadyAsWanted) {
    const standin::SettingsText text(std::string("[setting]\nneedmaxamount=12\n"));
    EXPECT_TRUE(ttconfig::whyNot(Explainer(text), "isNeedMaxAmountPts", {12}, Wanted("true")).isSoAlready);
}

TEST(WhyNot, DoesNotTakeOneNameWithACommaForTwo) {
    const standin::SettingsText text(std::string("[setting]\nsamrtalgotypes=A\n"));
    const auto found = ttconfig::whyNot(Explainer(text), "getAlgoTypes", {}, Wanted("A,B"));
    ASSERT_TRUE(found.edit);
    EXPECT_EQ(ttconfig::linesOf(text, *found.edit).after, std::vector<std::string>{"samrtalgotypes=A;B"});
    EXPECT_TRUE(Wanted("A,B").matches(Answer{"A,B"}));
    EXPECT_FALSE(Wanted("A,B").isPlainly(Answer{"A,B"}));
    EXPECT_TRUE(Wanted("A,B").isPlainly(Answer({"A", "B"})));
    EXPECT_TRUE(Wanted("[\"A,B\"]").isPlainly(Answer{"A,B"}));
}

TEST(WhyNot, TakesInvalidUtf8) {
    const standin::SettingsText text(
        std::string("[setting]\nneedmaxamount=8\nk\xFF=9\nsamrtalgotypes=a\xFF\nt0algotypes=a:b\n"
                    "algomultcontractsetting=P:\xFF,1,2,3,0\netfbrokerclienttag=a\xFF:b,c\n"
                    "[StkExchangeOrderLimit]\nSH-600000=5,\xFF\n"));
    const Explainer explainer(text);
    const struct {
        const char* call;
        Arguments arguments;
    } questions[] = {{"getAllpts", {}},
                     {"getPts", {"k\xFF"}},
                     {"getPts", {"needmaxamount"}},
                     {"isSomePt", {"k\xFF", 9}},
                     {"getAlgoTypes", {}},
                     {"getT0Strategy", {}},
                     {"getContractInfo", {"P", false}},
                     {"getAllContractInfo", {}},
                     {"getETFBrokerCLientTag", {}},
                     {"getETFBrokerCLientQueryTimes", {}},
                     {"getHgtSgtPriceDiff", {}},
                     {"getOrderLimit", {"SH", "600000", 0}}};
    const char* const wantedTexts[] = {"\xFF",
                                       "a:\xFF",
                                       "\xFF:8",
                                       "k\xFF:[\xFF]",
                                       "needmaxamount:\xFF",
                                       "[\xFF]",
                                       "5,\xFF",
                                       "needmaxamount:[8],k\xFF:[9,\xFF]",
                                       "P_stock:{productId:\xFF}"};
    for (const auto& question : questions) {
        for (const char* wanted : wantedTexts)
            EXPECT_NO_THROW(ttconfig::whyNot(explainer, question.call, question.arguments, Wanted(wanted)))
                << question.call << ' ' << wanted;
    }
}

TEST(Wanted, MatchesAnswersAsTheToolShowsThem) {
    const Answer record = {{"@", 3}, {"fields", {0.5, 1}}};
    const struct {
        Answer answer;
        const char* wanted;
        bool matches;
    } rows[] = {
        {true, "true", true},
        {true, "1", false},
        {5, "5", true},
        {5, "5.0", true},
        {0.5, "0.5", true},
        {"x", "x", true},
        {"x", "\"x\"", true},
        {"12", "12", true},
        {nullptr, "none", true},
        {nullptr, "null", true},
        {{100, "a"}, "100,a", true},
        {{100, "a"}, "[100,\"a\"]", true},
        {{100, "a"}, "[100, \"b\"]", false},
        {{1.0, "1.0"}, "1,1.0", true},
        {{1.0, "1.0"}, "1.0,1", false},
        {{1.0, 2}, "1,2,3", false},
        {record, "0.5,1", true},
        {record, "[0.5,1]", true},
        {record, R"({"fields":[0.5,1]})", true},
        {record, R"({"@":9,"fields":[0.5,1]})", true},
        {record, "0.5,2", false},
        {record, "@:3,fields:[0.5,1]", true},
        {record, "fields:[0.5,1]", true},
        {{{"@", 1}, {"a", 1}, {"b", "x"}}, "1,x", true},
        {{{"@", 1}, {"a", 1}, {"b", "x"}}, R"({"b":"x","a":1})", true},
        {{{"@", 1}, {"a", std::nan("")}}, R"({"@":1,"a":null})", true},
        {{{"@", 1}, {"a", "\xFF"}}, "{\"a\":\"\xEF\xBF\xBD\"}", true},
        {"", "", true},
        {Answer::array(), "", true},
        {Answer::array(), "[]", true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Wanted(row.wanted).matches(row.answer), row.matches) << row.answer << " " << row.wanted;
}

TEST(Wanted, ReadsListsAndRecordsAsTheyAreShown) {
    const std::pair<const char*, const char*> rows[] = {
        {"a,b", R"(["a","b"])"},
        {"", "[]"},
        {"[a,b],[,]", R"([["a","b"],["",""]])"},
        {"@:1,fields:[0.5,1]", R"({"fields":["0.5","1"]})"},
        {"P_stock:{@:1,productId:P,isCredit:true},Q_stock:{}",
         R"({"P_stock":{"productId":"P","isCredit":"true"},"Q_stock":[]})"},
        {R"([[1, "x"]])", R"([[1,"x"]])"},
        {"none", "null"},
        {"12", "null"},
        {"[[[", "[[[[]]]]"},
        {"]", "[]"},
    };
    for (const auto& [written, read] : rows)
        EXPECT_EQ(Wanted(written).structure().dump(), read) << written;
}

}  // namespace
