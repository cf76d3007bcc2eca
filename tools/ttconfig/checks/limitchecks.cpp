// Limit checks: reports what is wrong with a row of the limit sections.
// Entry points: checkLimitRow(), checkFixedIncome().
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>
#include <ttplatform/text.h>

#include <algorithm>

#include "traderbase/base/config/internal/text/digits.h"
#include "traderbase/base/config/internal/words/markets.h"
#include "ttconfig/advice/advice.h"
#include "ttconfig/checks/limitfields.h"
#include "ttconfig/checks/valuechecks.h"
#include "ttconfig/checks/valueranges.h"
#include "ttconfig/tables/limitquestions.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

// The first question asked of the table; it knows the most categories.
const LimitQuestionSpec& questionOf(const LimitTableSpec& table) {
    for (const LimitQuestionSpec* question : kLimitQuestions) {
        if (question->table == &table) return *question;
    }
    return *kLimitQuestions[0];  // never reached: every table has a question
}

bool isLetter(char c) {
    return !isDigit(c) && c != '.';
}

// Checks the items of one key.
class ItemCheck {
public:
    ItemCheck(EntryRemarks& target, SettingsContext& all, const LimitTableSpec& table)
        : remarks(target), context(all), question(questionOf(table)) {}

    void check(const LimitItem& item) {
        if (!item.hasDash) return sayNoDash(item);
        if (isOddlyWritten(item)) return;
        marketBefore = item.market;
        const auto [market, name] = tableKey(item);
        if (checkOverwritten(item)) return;
        if (checkReach(item, market, name)) return;
        if (checkMarket(item, market)) return;
        checkInstrument(item, market, name);
    }

private:
    // Whether the item contains characters that no market, code or category has. Reports them.
    bool isOddlyWritten(const LimitItem& item) {
        if (!isPlain(item.text)) {
            for (const std::string_view piece : {item.text, item.market, item.item}) {
                if (!causeIn(piece)) continue;
                sayCause(piece);
                return true;
            }
        }
        const std::size_t sign = item.text.find_first_of(";|*?");
        if (sign == std::string_view::npos) return false;
        if (item.text[sign] == ';' || item.text[sign] == '|') {
            remarks.wrong(RuleId::WrongSeparator, item.text, [&] {
                return "is one item, which no question finds" +
                       orWrite(withSigns(item.text, ";|", ','), "items are separated by \",\"");
            });
        } else {
            sayUnreachable(item, [] {
                return "nothing stands for several codes or markets; write a row for each, or the category";
            });
        }
        return true;
    }

    // Reports a piece with an odd character in it.
    void sayCause(std::string_view piece) {
        remarks.wrong(RuleId::UnknownCategory, piece, [&] {
            const std::string ascii = inAscii(piece);
            const std::string_view meant = isPlain(withoutBlanks(ascii)) ? withoutBlanks(ascii) : std::string_view();
            return "is found by no question" + orWrite(meant, "write it without");
        });
    }

    template <typename Why>
    void sayUnreachable(const LimitItem& item, Why&& why) {
        remarks.say(RuleId::UnreachableRow, item.text,
                    [&] { return fmt::format("no question reaches {} here: {}", shownText(item.text), why()); });
    }

    void sayNoDash(const LimitItem& item) {
        remarks.wrong(RuleId::ItemWithoutDash, item.text, [&] {
            std::string meant = limitItemMeant(item.text);
            // In SH-600000,600519, the market applies to the first code only.
            const bool isCode = meant.empty() && !marketBefore.empty() && !item.text.empty() &&
                                std::all_of(item.text.begin(), item.text.end(), isDigit);
            if (isCode) meant = fmt::format("{}-{}", marketBefore, item.text);
            return "has no \"-\", so that no question finds the row" +
                   orWrite(meant, "write the market, \"-\" and a code or category");
        });
    }

    // Whether the market is unknown. Reports it at the first of its rows.
    bool checkMarket(const LimitItem& item, const std::string& market) {
        if (context.markets.knows(market)) return false;
        if (!std::any_of(market.begin(), market.end(), isLetter) && isNamedMarket(item.item)) {
            sayUnreachable(item, [&] {
                return "the market stands in front of the \"-\"" +
                       orWrite(fmt::format("{}-{}", item.item, item.market), "write it there");
            });
        } else if (context.unknownMarkets.insert(market).second) {
            remarks.say(RuleId::UnknownMarket, item.market, [&] {
                return fmt::format("{} is a market that {}{}", shownText(item.market), context.markets.namers(),
                                   context.markets.didYouMean(market));
            });
        }
        return true;
    }

    bool checkOverwritten(const LimitItem& item) {
        const Place here = remarks.placeOf(item.text);
        const Place winner = context.winnersOf(*question.table).winner(item);
        if (winner == here) return false;
        const bool isSameRow = winner.line == here.line;
        remarks.say(isSameRow ? RuleId::RepeatedInList : RuleId::RowOverwritten, item.text,
                    isSameRow ? fmt::format("{} stands in this key again; once is enough", shownText(item.text))
                              : fmt::format("{} does not count here: the row at {} overwrites it; take one out",
                                            shownText(item.text), named(winner)),
                    winner);
        return true;
    }

    bool checkReach(const LimitItem& item, const std::string& market, const std::string& name) {
        if (isOfOtherConnect(question, market)) {
            const SettingKey& other =
                &question == &kShanghaiConnectRateQuestion ? keys::connectShenzhenRates : keys::connectShanghaiRates;
            remarks.say(
                RuleId::WrongConnect, item.text,
                fmt::format("{} is of the other connect, whose rates are looked for in [{}]; move the row there",
                            shownText(item.text), other.section));
            return true;
        }
        const bool isOdd = isOddWord(market, name);
        std::string why = isOdd ? std::string() : whyUnreachable(question, market, name);
        if (isOdd) {
            remarks.say(RuleId::UnknownCategory, item.item, [&] {
                const std::string_view meant = categoryMeant(name);
                return fmt::format("{} is no category, and no code of {}, so that no question finds the row{}{}{}",
                                   shownText(item.item), market, meant.empty() ? "" : "; did you mean ", meant,
                                   meant.empty() ? "" : "?");
            });
        } else if (!why.empty()) {
            sayUnreachable(item, [&] { return why; });
        } else if (name.empty() || market.empty()) {
            sayUnreachable(item, [&] {
                return fmt::format("there is nothing {} the \"-\"", name.empty() ? "behind" : "in front of");
            });
        } else if (isOddForFutures(question, market, name)) {
            remarks.say(RuleId::OddForFutures, item.text, [&] {
                return fmt::format("instruments of {} go by DEF, unless the platform gives them another type; write {}",
                                   market, shownText(market + "-DEF"));
            });
        } else if (isFuturesProduct(market, name)) {
            remarks.say(RuleId::OddForFutures, item.text, [&] {
                return fmt::format(
                    "the row is found for the code {} alone and for none of its contracts; write a row "
                    "for each, or {}",
                    shownText(item.item), shownText(market + "-DEF"));
            });
        } else {
            return false;
        }
        return true;
    }

    void checkInstrument(const LimitItem& item, const std::string& market, const std::string& code) {
        // Platform data must know every instrument of a stock exchange, but not every code of other markets.
        if (context.platform == nullptr || !isStockExchange(market)) return;
        if (isCategoryWord(code) || knowsInstrument(*context.platform, market, code)) return;
        remarks.say(RuleId::UnknownInstrument, item.text, [&] {
            return fmt::format("the platform data knows no instrument {} of {}; check the code", shownText(code),
                               market);
        });
    }

    EntryRemarks& remarks;
    SettingsContext& context;
    const LimitQuestionSpec& question;
    std::string_view marketBefore;  // of the previous item
};

}  // namespace

void checkLimitRow(EntryRemarks& remarks, SettingsContext& context, const SettingKey& row) {
    remarks.lookForComment(Semicolons::Comment);
    const LimitTableSpec* table = limitTableOf(row.section);
    if (table == nullptr || !checkLimitFields(remarks, fieldShapeOf(*table), rangeOf(row))) return;
    ItemCheck items(remarks, context, *table);
    forEachLimitItem(remarks.entry().key, [&items](const LimitItem& item) { items.check(item); });
}

void checkFixedIncome(EntryRemarks& remarks, const SettingKey& row) {
    remarks.lookForComment(Semicolons::Comment);
    if (!remarks.value().empty()) checkLimitFields(remarks, kFixedIncomeShape, rangeOf(row));
}

}  // namespace ttconfig
