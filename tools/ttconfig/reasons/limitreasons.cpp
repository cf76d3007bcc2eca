// Reasons for limits: which row, if any, sets the limits and rates of an instrument, and which edits might change them.
// Entry points: addLimitReasons().
// Covered by tests/tools/ttconfig/explaining/explainedanswers_test.cpp.

#include "traderbase/base/config/internal/limits/volumelimit.h"
#include "ttconfig/edits/fieldedits.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/tables/limitquestions.h"
#include "ttconfig/tables/limittable.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;

// --- reasons

// One look-up in the table, and the entries it found.
struct LookedUp {
    Reason reason;     // if its row decides
    std::string item;  // the code, or the category word
    LimitEntries entries;
};

class LimitExplanation {
public:
    LimitExplanation(const standin::SettingsText& settings, const AskedLimit& question)
        : text(settings), asked(question) {}

    Explanation explained() && {
        asked.question.looksForCode ? byCodeOrCategory() : byCategoryAlone();
        return std::move(explanation);
    }

private:
    void byCodeOrCategory() {
        const LookedUp own = lookUp(Reason::CodeRow, asked.code);
        if (!own.entries.last) {
            loseMissing(own);
            losePassedOver(own);
            return byCategory();
        }
        decideByRow(own);
        const LookedUp category = lookUp(Reason::CategoryRow, asked.category.word);
        if (!category.entries.last || category.item == asked.code) return;
        const LimitEntry& other = *category.entries.last;
        loseTo(category, other.place(), wouldBe(withoutRecordNumbers(answerOf(other.row->value))));
    }

    // The question does not look up the code, but the table may have a row for it.
    void byCategoryAlone() {
        byCategory();
        const LookedUp own = lookUp(Reason::CodeRow, asked.code);
        if (!own.entries.last || own.item == asked.category.word) return;
        explanation.lost.insert(explanation.lost.begin(), {own.reason, nameOf(own), own.entries.last->place(),
                                                           "rows of codes are not looked for here"});
    }

    void byCategory() {
        const LookedUp category = lookUp(Reason::CategoryRow, asked.category.word);
        if (category.entries.last) return decideByRow(category);
        const bool isInserted = asked.question.insertsDefault;
        decide(category, answerOf(std::nullopt), isInserted ? Reason::InsertedDefault : Reason::BuiltInDefault,
               "no row for " + nameOf(category) + categoryIn(category) +
                   (isInserted ? "; the default is kept there until the next load" : ""));
        loseMissing(category);
        losePassedOver(category);
    }

    void decideByRow(const LookedUp& found) {
        const LimitEntry& entry = *found.entries.last;
        decide(found, answerOf(entry.row->value), found.reason,
               nameOf(found) + " in [" + std::string(entry.section->section) + "]" + categoryIn(found));
        explanation.place = entry.place();
        explanation.limit->section = entry.section->section;
        explanation.limit->row = entry.row;
        losePassedOver(found);
        for (const LimitEntry& former : found.entries.former)
            loseTo(found, former.place(), "overwritten by line " + std::to_string(entry.row->line));
        explanation.furtherLost += found.entries.furtherFormer;
    }

    void decide(const LookedUp& found, Answer answer, Reason reason, std::string rule) {
        explanation.answer = std::move(answer);
        explanation.reason = reason;
        explanation.rule = std::move(rule);
        const bool isCategory = found.reason == Reason::CategoryRow;
        explanation.limit = {asked.itemOf(found.item), isCategory ? asked.category : internal::LimitCategory(), {}, {}};
    }

    void loseTo(const LookedUp& found, std::optional<Place> place, std::string outcome) {
        lose(explanation, {found.reason, nameOf(found), place, std::move(outcome)});
    }

    void loseMissing(const LookedUp& found) { loseTo(found, std::nullopt, "no row that counts names it"); }

    void losePassedOver(const LookedUp& found) {
        for (const LimitEntry& passed : found.entries.passedOver) {
            loseTo(found, passed.place(),
                   passed.row->repeated ? std::string("of a repeated key the first value counts")
                                        : std::to_string(internal::fieldCount(passed.row->value)) + " fields, not " +
                                              std::to_string(asked.question.table->fieldCount) + ": passed over");
        }
        explanation.furtherLost += found.entries.furtherPassedOver;
    }

    LookedUp lookUp(Reason reason, std::string_view item) const {
        return {reason, std::string(item), limitEntries(text, *asked.question.table, asked.market, item)};
    }

    std::string nameOf(const LookedUp& found) const { return cutText(asked.itemOf(found.item), 60); }

    // The rule that chose the category, for the explanation; empty for the row of a code.
    std::string categoryIn(const LookedUp& found) const {
        return found.reason == Reason::CategoryRow ? ", the category of " + std::string(asked.category.rule) : "";
    }

    Answer answerOf(std::optional<std::string_view> value) const {
        Answer answer = limitAnswer(asked.question, value);
        return isRecord(asked.question) ? Answer{{"@", 1}, {"fields", std::move(answer)}} : answer;
    }

    const standin::SettingsText& text;
    const AskedLimit& asked;
    Explanation explanation;
};

// --- edits that might give the wanted limit

constexpr std::string_view kOthersOfRow = "everything else that the row names";
constexpr std::string_view kOthersOfCategory = "every other instrument of the category";

// At most this many rows that already have the wanted fields are tried with the item added to their key.
constexpr std::size_t kMostRowsNaming = 20;

// The fields of a row that gives the wanted answer. Fields outside the answer may have any value; in a new row they get
// the value that applies without a row.
WantedPieces fieldsOf(const LimitQuestionSpec& asked, const std::vector<std::string>& wanted) {
    const std::string quantity = std::to_string(internal::kLimitWithoutRow);
    std::vector<WantedField> fields = {{quantity, true}, {internal::volumeLimitWithoutRow().second, true}};
    fields.resize(asked.table->fieldCount, {quantity, true});
    for (std::size_t i = 0; i < wanted.size(); ++i)
        fields[asked.firstField + i] = {wanted[i]};
    return wantedFields(asked.table->shape, std::move(fields));
}

// The key with this market and item removed.
std::string keyWithout(std::string_view key, const AskedLimit& asked, std::string_view item) {
    std::string kept;
    internal::forEachLimitItem(key, [&](const internal::LimitItem& written) {
        if (!isNamed(written, asked.market, item)) kept.append(kept.empty() ? "" : ",").append(written.text);
    });
    return kept;
}

std::string_view reachOfRow(std::string_view key, bool isCategory) {
    const bool isAlone = key.find(',') == std::string_view::npos;
    if (isCategory) return kOthersOfCategory;
    return isAlone ? std::string_view() : kOthersOfRow;
}

// The edits for one market and item of the table.
class PlaceEdits {
public:
    PlaceEdits(const standin::SettingsText& settings, const AskedLimit& question, std::string_view placeItem,
               Edits& target)
        : text(settings),
          asked(question),
          table(*question.question.table),
          item(placeItem),
          isCategory(item == asked.category.word),
          edits(target) {}

    // Changes the value of the row that counts, removes the item from its key, or removes the row. `fields` is null if
    // no value can give the wanted answer.
    void suggestRow(const WantedPieces* fields) {
        const auto entry = limitEntries(text, table, asked.market, item).last;
        if (!entry) return;
        if (fields != nullptr) suggestFields(*entry->row, *fields);
        edits.reaching(reachOfRow(entry->row->key, isCategory));
        edits.removeLine(*entry->row);
        const std::string key = keyWithout(entry->row->key, asked, item);
        edits.reaching(isCategory ? kOthersOfCategory : std::string_view());
        if (!key.empty()) edits.setKey(*entry->row, key);
    }

    // Adds a row, or adds the item to a row that already has the wanted fields.
    void suggestNewRow(const WantedPieces& fields) {
        edits.reaching(isCategory ? kOthersOfCategory : std::string_view());
        const std::string key = asked.itemOf(item);
        for (const internal::SettingKey* section : table.sections)
            edits.addLast(section->section, key, wholeValue(fields));
        std::size_t named = 0;
        forEachLimitRow(text, table, [&](const auto& each) {
            if (!each.counts() || named == kMostRowsNaming || !saysAll(fields, each.row.value)) return;
            edits.setKey(each.row, std::string(each.row.key) + "," + key);
            ++named;
        });
    }

    // Repairs rows for the item that have the wrong number of fields.
    void suggestPassedOver(const WantedPieces& fields) {
        forEachLimitRow(text, table, [&](const auto& each) {
            if (each.state != internal::LimitRowState::WrongFieldCount) return;
            each.forEachItem([&](const internal::LimitItem& written) {
                if (isNamed(written, asked.market, item)) suggestFields(each.row, fields);
            });
        });
    }

private:
    void suggestFields(const standin::SettingsEntry& row, WantedPieces fields) {
        fields.reach = reachOfRow(row.key, isCategory);
        suggestPieces(row, row.value, fields, edits);
    }

    const standin::SettingsText& text;
    const AskedLimit& asked;
    const LimitTableSpec& table;
    const std::string_view item;
    const bool isCategory;
    Edits& edits;
};

void suggestLimit(const standin::SettingsText& text, const AskedLimit& asked, const Wanted& wanted, Edits& edits) {
    const LimitQuestionSpec& question = asked.question;
    const std::vector<std::string> values = wanted.values();
    const bool fits = !values.empty() && question.firstField + values.size() <= question.table->fieldCount;
    const WantedPieces fields = fieldsOf(question, fits ? values : std::vector<std::string>());
    std::vector<std::string_view> items;
    if (question.looksForCode) items.emplace_back(asked.code);
    if (items.empty() || items.front() != asked.category.word) items.push_back(asked.category.word);
    for (const std::string_view item : items) {
        PlaceEdits place(text, asked, item, edits);
        place.suggestRow(fits ? &fields : nullptr);
        if (!fits) continue;
        place.suggestNewRow(fields);
        place.suggestPassedOver(fields);
    }
}

// --- questions

AskedLimit askedLimit(const LimitQuestionSpec& spec, const Question& question) {
    return {spec, question.text(0), question.text(1), question.arguments.size() > 2 ? question.number(2) : 0};
}

}  // namespace

void addLimitReasons(ExplainedCalls& calls) {
    for (const LimitQuestionSpec* spec : internal::kLimitQuestions) {
        calls.add(std::string(spec->operation),
                  {[spec](const Question& question) {
                       return LimitExplanation(question.settings(), askedLimit(*spec, question)).explained();
                   },
                   [spec](const Question& question, const Wanted& wanted, Edits& edits) {
                       suggestLimit(question.settings(), askedLimit(*spec, question), wanted, edits);
                   }});
    }
}

}  // namespace ttconfig
