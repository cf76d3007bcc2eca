// Reasons of numbers by code: which row of a section gives a code its number.
// Doors: numberRowCall().
// Owns: nothing.
// Covered by tests/tools/ttconfig/explainer_test.cpp and explainedanswers_test.cpp.

#include "ttconfig/reasons/numberrowreasons.h"

#include <boost/algorithm/string/case_conv.hpp>

#include "ttconfig/edits/fieldtexts.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using standin::SettingsEntry;

struct NumberQuestion {
    const Question& question;
    const ttservice::internal::SettingKey& topic;
    const NumberRows& rows;
    double whenMissing;

    const std::string& code() const { return question.text(0); }
    const NumberRow* find() const {
        const auto found = rows.find(code());
        return found == rows.end() ? nullptr : &found->second;
    }
};

std::string rowName(const NumberQuestion& asked, const SettingsEntry& row) {
    return nameOf(asked.topic.section, row.key);
}

// Other rows that come to the code, and what is wrong with them.
void addOthers(const NumberQuestion& asked, const SettingsEntry* winner, Explanation& explanation) {
    const standin::SettingsSection* section = asked.question.settings().findSection(asked.topic.section);
    if (section == nullptr) return;
    for (const SettingsEntry& row : section->entries) {
        if (&row == winner) continue;
        const bool isCode = row.key == asked.code();
        const std::string upper = boost::algorithm::to_upper_copy(std::string(row.key));
        if (!isCode && upper != boost::algorithm::to_upper_copy(asked.code())) continue;
        const bool leadsHere = isCode || upper == asked.code();
        lose(explanation, {Reason::Row, rowName(asked, row), keyPlace(row),
                           row.repeated ? "of a repeated key the first value counts"
                           : leadsHere  ? "an earlier row has the code"
                                        : "found in upper case and as it is written, not so"});
    }
}

Explanation explainNumberRow(const NumberQuestion& asked) {
    const NumberRow* found = asked.find();
    if (found == nullptr) {
        const auto* section = asked.question.settings().findSection(asked.topic.section);
        Explanation explanation =
            decided(asked.whenMissing, section == nullptr ? Reason::KeyAbsent : Reason::BuiltInDefault,
                    section == nullptr ? "there is no section [" + std::string(asked.topic.section) + "]"
                                       : "no row for " + nameOf(asked.topic.section, asked.code()));
        addOthers(asked, nullptr, explanation);
        return explanation;
    }
    const SettingsEntry& row = *found->row;
    const std::string upper = found->isUpperCase ? ", in upper case" : "";
    Explanation explanation;
    if (found->isNumber) {
        explanation = decided(found->value, Reason::Row, rowName(asked, row) + upper, keyPlace(row));
    } else {
        explanation = decided(found->value, Reason::BuiltInDefault, rowName(asked, row) + upper + " has no number");
        lose(explanation, {Reason::Row, rowName(asked, row), valuePlace(row), shownText(row.value) + " is no number"});
    }
    addOthers(asked, &row, explanation);
    return explanation;
}

void suggestNumberRow(const NumberQuestion& asked, const Wanted& wanted, Edits& edits) {
    const std::string number = writtenLike({}, FieldKind::StrictDecimal, wanted.text());
    if (const NumberRow* found = asked.find()) {
        if (found->isUpperCase || boost::algorithm::to_upper_copy(asked.code()) != asked.code()) {
            edits.reaching("the code in the other letter case");
        }
        edits.setValue(*found->row, writtenLike(found->row->value, FieldKind::StrictDecimal, number));
        edits.removeLine(*found->row);
        edits.reaching({});
    }
    edits.addFirst(asked.topic.section, asked.code(), number);
    edits.addLast(asked.topic.section, asked.code(), number);
}

}  // namespace

ExplainedCall numberRowCall(const ttservice::internal::SettingKey& topic,
                            const NumberRows& (SettingsFacts::*rows)() const, double whenMissing) {
    const auto asked = [&topic, rows, whenMissing](const Question& question) {
        return NumberQuestion{question, topic, (question.facts.*rows)(), whenMissing};
    };
    return {[asked](const Question& question) { return explainNumberRow(asked(question)); },
            [asked](const Question& question, const Wanted& wanted, Edits& edits) {
                suggestNumberRow(asked(question), wanted, edits);
            }};
}

}  // namespace ttconfig
