// Reasons of the limits: which row gives the limits and rates of an instrument, or that none does.
// Doors: addLimitReasons().
// Owns: the order in which a table's rows are looked for, one LimitLookup a question.
// Covered by tests/tools/ttconfig/explainer_test.cpp and explainedanswers_test.cpp.

#include <ttplatform/text.h>

#include <vector>

#include "traderbase/base/config/internal/limits/limitcategories.h"
#include "traderbase/base/config/internal/limits/volumelimit.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "traderbase/base/config/internal/words/markets.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/limitedits.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;
namespace markets = ttservice::internal::markets;
using internal::LimitCategory;

// --- values of rows

Answer fieldAnswer(std::string_view field, internal::LimitField kind) {
    switch (kind) {
        case internal::LimitField::Integer:
            return internal::looseInt(field);
        case internal::LimitField::Decimal:
            return internal::looseDouble(field);
        case internal::LimitField::Text:
            break;
    }
    return std::string(field);
}

template <std::size_t Count>
std::vector<Answer> fieldAnswers(std::string_view value, const internal::LimitRowShape<Count>& shape) {
    std::vector<Answer> answers;
    internal::splitKeepEmpty(value, ',', [&](std::string_view field) {
        if (answers.size() < Count) answers.push_back(fieldAnswer(field, shape[answers.size()]));
    });
    return answers;
}

Answer rateRecord(const std::vector<Answer>& fields) {
    Answer record = Answer::object();
    record["@"] = 1;
    record["fields"] = fields;
    return record;
}

Answer orderLimitOf(std::string_view value) {
    return fieldAnswers(value, internal::kOrderLimitRow);
}
Answer blockTradeQuantityOf(std::string_view value) {
    const std::vector<Answer> fields = fieldAnswers(value, internal::kBlockTradeLimitRow);
    return {fields[0], fields[1]};
}
Answer blockTradeAmountOf(std::string_view value) {
    return fieldAnswers(value, internal::kBlockTradeLimitRow)[2];
}
Answer stockRateOf(std::string_view value) {
    return rateRecord(fieldAnswers(value, internal::kStockRateRow));
}
Answer connectRateOf(std::string_view value) {
    return rateRecord(fieldAnswers(value, internal::kConnectRateRow));
}

// --- reasons

// A candidate for each row that names the item and was passed over.
void addPassedOver(const LimitLookup& asked, const std::string& item, Reason reason, Explanation& explanation) {
    for (const LimitRow& passed : asked.table.passedOver) {
        internal::forEachLimitItem(passed.row->key, [&](const internal::LimitItem& written) {
            if (!isNamed(written, asked.market, item)) return;
            lose(explanation,
                 {reason, asked.nameOf(item), placeInKey(*passed.row, written.text),
                  passed.row->repeated ? std::string("of a repeated key the first value counts")
                                       : std::to_string(internal::fieldCount(passed.row->value)) + " fields, not " +
                                             std::to_string(asked.fieldCount) + ": passed over"});
        });
    }
}

// Rows that named the item before the one that counts.
void addFormers(const LimitLookup& asked, const LimitEntries& entries, Reason reason, const std::string& item,
                Explanation& explanation) {
    for (const LimitEntry& former : entries.former) {
        lose(explanation, {reason, asked.nameOf(item), former.place(),
                           "overwritten by line " + std::to_string(entries.last->row->line)});
    }
    explanation.furtherLost += entries.furtherFormer;
}

Explanation byRow(const LimitLookup& asked, const LimitEntries& entries, Reason reason, const std::string& item) {
    const LimitEntry& entry = *entries.last;
    Explanation explanation;
    explanation.answer = asked.valueOf(entry.row->value);
    explanation.reason = reason;
    explanation.rule = asked.nameOf(item) + " in [" + std::string(entry.section->name) + "]" + asked.describe(reason);
    explanation.place = entry.place();
    addPassedOver(asked, item, reason, explanation);
    addFormers(asked, entries, reason, item, explanation);
    return explanation;
}

Candidate missingRow(const LimitLookup& asked, const std::string& item, Reason reason) {
    return {reason, asked.nameOf(item), std::nullopt, "no row that counts names it"};
}

Explanation withoutRow(const LimitLookup& asked) {
    Explanation explanation;
    explanation.answer = asked.valueWithoutRow;
    explanation.reason = asked.insertsDefault ? Reason::InsertedDefault : Reason::BuiltInDefault;
    explanation.rule = "no row for " + asked.nameOf(asked.categoryWord()) + asked.describe(Reason::CategoryRow) +
                       (asked.insertsDefault ? "; the default is kept there until the next load" : "");
    explanation.lost.push_back(missingRow(asked, asked.categoryWord(), Reason::CategoryRow));
    addPassedOver(asked, asked.categoryWord(), Reason::CategoryRow, explanation);
    return explanation;
}

Explanation byCategory(const LimitLookup& asked) {
    const LimitEntries entries = asked.table.entriesOf(asked.market, asked.category.word);
    return entries.last ? byRow(asked, entries, Reason::CategoryRow, asked.categoryWord()) : withoutRow(asked);
}

// The code's own row is not looked for, but may be there.
Explanation byCategoryAlone(const LimitLookup& asked) {
    Explanation explanation = byCategory(asked);
    const auto own = asked.table.find(asked.market, asked.code);
    if (own && asked.code != asked.category.word) {
        explanation.lost.insert(explanation.lost.begin(), {Reason::CodeRow, asked.nameOf(asked.code), own->place(),
                                                           "rows of codes are not looked for here"});
    }
    return explanation;
}

Explanation explainLimit(const LimitLookup& asked) {
    if (!asked.looksForCode) return byCategoryAlone(asked);
    const LimitEntries entries = asked.table.entriesOf(asked.market, asked.code);
    if (entries.last) {
        Explanation explanation = byRow(asked, entries, Reason::CodeRow, asked.code);
        const auto category = asked.table.find(asked.market, asked.category.word);
        if (category && asked.category.word != asked.code) {
            lose(explanation, {Reason::CategoryRow, asked.nameOf(asked.categoryWord()), category->place(),
                               wouldBe(withoutRecordNumbers(asked.valueOf(category->row->value)))});
        }
        return explanation;
    }
    Explanation explanation;
    explanation.lost.push_back(missingRow(asked, asked.code, Reason::CodeRow));
    addPassedOver(asked, asked.code, Reason::CodeRow, explanation);
    Explanation category = byCategory(asked);
    explanation.furtherLost += category.furtherLost;
    for (Candidate& candidate : category.lost)
        lose(explanation, std::move(candidate));
    category.lost = std::move(explanation.lost);
    category.furtherLost = explanation.furtherLost;
    return category;
}

// --- questions

// The question's market and code in upper case.
struct AskedInstrument {
    std::string market;
    std::string code;

    explicit AskedInstrument(const Question& question)
        : market(utils::toUpper(question.text(0))), code(utils::toUpper(question.text(1))) {}
};

LimitLookup orderLimitQuestion(const Question& question) {
    const AskedInstrument asked(question);
    const auto priceType = static_cast<EBrokerPriceType>(question.number(2));
    LimitLookup limit{question, question.facts.orderLimits(), asked.market, asked.code,
                      internal::orderLimitCategory(asked.market, asked.code, priceType)};
    limit.sections = {&keys::orderLimits, &keys::connectShanghaiOrderLimits, &keys::connectShenzhenOrderLimits};
    limit.setShape(internal::kOrderLimitRow);
    limit.valueOf = orderLimitOf;
    limit.valueWithoutRow = answerOf(internal::volumeLimitWithoutRow());
    return limit;
}

LimitLookup blockTradeQuestion(const Question& question, const AskedInstrument& asked, LimitCategory category) {
    LimitLookup limit{question, question.facts.blockTrades(), asked.market, asked.code, category};
    limit.sections = {&keys::blockTradeLimits};
    limit.setShape(internal::kBlockTradeLimitRow);
    limit.looksForCode = false;
    limit.insertsDefault = false;
    return limit;
}

LimitLookup blockTradeQuantityQuestion(const Question& question) {
    const AskedInstrument asked(question);
    LimitLookup limit =
        blockTradeQuestion(question, asked, internal::blockTradeQuantityCategory(asked.market, asked.code));
    limit.valueOf = blockTradeQuantityOf;
    limit.valueWithoutRow = answerOf(internal::volumeLimitWithoutRow());
    limit.firstField = 0;
    return limit;
}

LimitLookup blockTradeAmountQuestion(const Question& question) {
    const AskedInstrument asked(question);
    LimitLookup limit =
        blockTradeQuestion(question, asked, internal::blockTradeAmountCategory(asked.market, asked.code));
    limit.valueOf = blockTradeAmountOf;
    limit.valueWithoutRow = internal::kLimitWithoutRow;
    limit.firstField = 2;
    return limit;
}

LimitLookup stockRateQuestion(const Question& question) {
    const AskedInstrument asked(question);
    LimitLookup limit{question, question.facts.stockRates(), asked.market, asked.code,
                      internal::stockRateCategory(asked.market, asked.code)};
    limit.sections = {&keys::stockRates};
    limit.setShape(internal::kStockRateRow);
    limit.valueOf = stockRateOf;
    limit.valueWithoutRow = rateRecord({0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 0});
    return limit;
}

// A connect takes the market HK for its own.
LimitLookup connectRateQuestion(const Question& question, const LimitTable& table, const internal::SettingKey& key,
                                std::string_view ownMarket) {
    AskedInstrument asked(question);
    if (asked.market == markets::kHk) asked.market = ownMarket;
    LimitLookup limit{question, table, asked.market, asked.code, internal::shenzhenConnectRateCategory()};
    limit.sections = {&key};
    limit.setShape(internal::kConnectRateRow);
    limit.valueOf = connectRateOf;
    limit.valueWithoutRow = rateRecord(std::vector<Answer>(internal::kConnectRateRow.size(), 0.0));
    return limit;
}

LimitLookup shanghaiConnectQuestion(const Question& question) {
    LimitLookup limit =
        connectRateQuestion(question, question.facts.shanghaiConnectRates(), keys::connectShanghaiRates, markets::kHgt);
    limit.category = internal::shanghaiConnectRateCategory(limit.market, limit.code);
    return limit;
}

LimitLookup shenzhenConnectQuestion(const Question& question) {
    return connectRateQuestion(question, question.facts.shenzhenConnectRates(), keys::connectShenzhenRates,
                               markets::kSgt);
}

ExplainedCall limitCall(LimitLookup (*asked)(const Question&)) {
    return {[asked](const Question& question) { return explainLimit(asked(question)); },
            [asked](const Question& question, const Wanted& wanted, Edits& edits) {
                suggestLimit(asked(question), wanted, edits);
            }};
}

}  // namespace

std::string LimitLookup::nameOf(std::string_view item) const {
    return cutText(market + "-" + std::string(item), 60);
}

std::string LimitLookup::describe(Reason reason) const {
    return reason == Reason::CategoryRow ? ", the category of " + std::string(category.rule) : std::string();
}

void addLimitReasons(ExplainedCalls& calls) {
    calls.add("getOrderLimit", limitCall(orderLimitQuestion));
    calls.add("getDazongOrderNumLimit", limitCall(blockTradeQuantityQuestion));
    calls.add("getDazongOrderTradeAmountLimit", limitCall(blockTradeAmountQuestion));
    calls.add("getRateLimitPtr", limitCall(stockRateQuestion));
    calls.add("getHGTExchangeRateLimitPtr", limitCall(shanghaiConnectQuestion));
    calls.add("getSgtExchangeRateLimitPtr", limitCall(shenzhenConnectQuestion));
}

}  // namespace ttconfig
