// Limit changes: finds the instruments and categories whose order limits, block trade limits or rates differ.
// Entry points: tellLimitChanges().
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <algorithm>
#include <utility>

#include "ttconfig/differences/changesink.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/tables/limitquestions.h"
#include "ttconfig/tables/limittable.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using Row = LimitItemRow;

// The topic of a table's questions.
ChangeTopic topicOf(const LimitTableSpec& table) {
    if (&table == &kOrderLimitTable) return ChangeTopic::OrderLimit;
    return &table == &kBlockTradeTable ? ChangeTopic::BlockTradeLimit : ChangeTopic::RateLimit;
}

bool isSameField(const Answer& left, const Answer& right) {
    return left.is_number_float() ? isSameNumber(left.get<double>(), right.get<double>()) : left == right;
}

bool isSameAnswer(const Answer& left, const Answer& right) {
    if (!left.is_array()) return isSameField(left, right);
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), isSameField);
}

// Compares the answers of one question in both texts.
class LimitChanges {
public:
    LimitChanges(const LimitQuestionSpec& asked, const LimitItemRows& oldRows, const LimitItemRows& newRows,
                 const standin::PlatformData* data, const ChangeSink& sink)
        : question(asked), before(oldRows), after(newRows), platform(data), tell(sink) {}

    void tellAll() {
        mergeRows(before, after, lessLimitItem, [this](const Row& one, const Row* left, const Row* right) {
            if (left != nullptr && right != nullptr && left->entry->value == right->entry->value) return;
            compare(one, left, right);
        });
    }

private:
    // The distinct answers for the categories of one market.
    using CategoryValues = std::vector<Answer>;

    void compare(const Row& one, const Row* left, const Row* right) {
        const bool isAsked = (left != nullptr && left->item().hasDash) || (right != nullptr && right->item().hasDash);
        const auto [market, item] = tableKey(one.item());
        if (!isAsked || !isReachable(question, market, item)) return;
        const bool isCode = !isCategoryWord(item);
        if (isCode && (left == nullptr || right == nullptr)) return compareCode(market, item, left, right);
        Answer old = answerOf(left);
        Answer now = answerOf(right);
        if (!isSameAnswer(old, now)) change(market, item, std::move(old), std::move(now), left, right);
    }

    // In the text without a row for the code, the code's category decides.
    void compareCode(const std::string& market, const std::string& code, const Row* left, const Row* right) {
        const CategoryValues& others = valuesByCategory(left == nullptr ? before : after, market, code);
        Answer old = answerOf(left == nullptr ? right : left);
        if (others.size() == 1 && isSameAnswer(old, others.front())) return;
        Answer now = others.size() == 1 ? others.front() : Answer();
        if (left == nullptr) std::swap(old, now);
        change(market, code, std::move(old), std::move(now), left, right);
    }

    Answer answerOf(const Row* row) const {
        return limitAnswer(question, row == nullptr ? std::nullopt : std::optional(row->entry->value));
    }

    // The answers for the code's category or, if that is unknown, for every category that the code can have.
    const CategoryValues& valuesByCategory(const LimitItemRows& rows, const std::string& market,
                                           const std::string& code) {
        if (platform != nullptr && knowsInstrument(*platform, market, code)) {
            ownCategories = categoryValues(rows, market, categoryWordsOfCode(question, market, code));
            return ownCategories;
        }
        // Codes come market by market, so look the categories up once per market.
        if (oldCategories.empty() || market != categoriesOf) {
            categoriesOf = market;
            oldCategories = categoryValues(before, market, categoryWordsOf(question, market));
            newCategories = categoryValues(after, market, categoryWordsOf(question, market));
        }
        return &rows == &before ? oldCategories : newCategories;
    }

    CategoryValues categoryValues(const LimitItemRows& rows, const std::string& market,
                                  const std::vector<std::string_view>& words) const {
        CategoryValues values;
        for (const std::string_view word : words) {
            Answer value = answerOf(findLimitItem(rows, market, word));
            const auto same = [&value](const Answer& known) { return isSameAnswer(known, value); };
            if (std::none_of(values.begin(), values.end(), same)) values.push_back(std::move(value));
        }
        return values;
    }

    void change(const std::string& market, const std::string& item, Answer old, Answer now, const Row* left,
                const Row* right) const {
        const auto placeOf = [](const Row* row) { return row == nullptr ? std::nullopt : std::optional(row->place()); };
        tell(changeOf(topicOf(*question.table), market + '-' + item, std::string(question.operation),
                      {std::move(old), placeOf(left)}, {std::move(now), placeOf(right)}));
    }

    const LimitQuestionSpec& question;
    const LimitItemRows& before;
    const LimitItemRows& after;
    const standin::PlatformData* platform;
    const ChangeSink& tell;
    std::string categoriesOf;
    CategoryValues oldCategories;
    CategoryValues newCategories;
    CategoryValues ownCategories;
};

}  // namespace

void tellLimitChanges(const TextPair& texts, const ChangeSink& tell) {
    for (const LimitTableSpec* table : kLimitTables) {
        const LimitSections& sections = table->sections;
        if (std::all_of(sections.begin(), sections.end(),
                        [&](const SettingKey* section) { return haveSameEntries(texts, section->section); })) {
            continue;
        }
        const LimitItemRows before = limitItems(texts.before, *table);
        const LimitItemRows after = limitItems(texts.after, *table);
        for (const LimitQuestionSpec* question : kLimitQuestions) {
            if (question->table != table) continue;
            LimitChanges(*question, before, after, texts.platform, tell).tellAll();
        }
    }
}

}  // namespace ttconfig
