// Single value checks: answers what is wrong with a value for the whole client, a fee or a ratio.
// Doors: checkSingleValue(), checkDecimalRow().
// Owns: the least value that makes sense, key by key.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>
#include <standin/numbertext.h>

#include "ttconfig/findings/numberchecks.h"
#include "ttconfig/findings/valuechecks.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

void checkText(EntryRemarks& remarks) {
    remarks.text(remarks.value(), FullWidth::Fine);
}

void checkBadNumber(EntryRemarks& remarks, std::string_view whenMissing) {
    const std::string_view value = remarks.value();
    const std::string counts = fmt::format("so the default {} counts", whenMissing);
    if (value.empty()) {
        remarks.say(RuleId::NotANumber, value, [&] { return fmt::format("there is no value, {}; write one", counts); });
    } else if (isWholeNumber(value)) {
        remarks.wrong(RuleId::NumberOutOfRange, value,
                      [&] { return fmt::format("does not fit 32 bits, {}; write a smaller one", counts); });
    } else if (isNumberList(value, ",;:")) {
        remarks.wrong(RuleId::ValueAsList, value, [&] {
            return fmt::format("is a list where one value for all belongs, {}; write one number", counts);
        });
    } else {
        remarks.wrong(RuleId::NotANumber, value,
                      [&] { return fmt::format("is no whole number, {}; write a number", counts); });
    }
}

void checkRange(EntryRemarks& remarks, const SettingKey& row, int value) {
    if (row.grammar == ValueGrammar::Flag) {
        if (value == 0 || value == 1) return;
        remarks.say(RuleId::FlagNotZeroOrOne, remarks.value(),
                    [&] { return fmt::format("{} is off, as is every number but 1; write 0 or 1", value); });
    } else if (isRow(row, keys::flowHistoryDays) && value < -1) {
        remarks.say(RuleId::ValueOutOfRange, remarks.value(),
                    [&] { return fmt::format("{} is no number of days, but counts; write -1 or more", value); });
    } else if (isRow(row, keys::refLimit) && value < 0) {
        remarks.say(RuleId::ValueOutOfRange, remarks.value(),
                    [&] { return fmt::format("{} is no limit of references, but counts; write 0 or more", value); });
    }
}

// Of two keys that are one in upper case, the earlier has what the upper-case form answers.
void checkCollision(EntryRemarks& remarks, UpperCaseRows& rows) {
    const standin::SettingsEntry* known = rows.enter(remarks.entry());
    if (known == nullptr) return;
    const standin::SettingsEntry& earlier = *known;
    double here = 0.0;
    double there = 0.0;
    if (standin::readDecimal(remarks.value(), here) && standin::readDecimal(earlier.value, there) && here == there)
        return;
    remarks.say(
        RuleId::UpperCaseCollision, remarks.entry().key,
        [&] {
            return fmt::format(
                "{} and {} at {} are the same in upper case, which answers {} as the earlier one says; "
                "write the code once",
                shownText(remarks.entry().key), shownText(earlier.key), named(keyPlace(earlier)),
                shownText(earlier.value));
        },
        keyPlace(earlier));
}

}  // namespace

void checkSingleValue(EntryRemarks& remarks, const SettingKey& row) {
    remarks.lookForComment(Semicolons::Comment);
    if (row.grammar == ValueGrammar::Text) return checkText(remarks);
    const auto number = strictInt(remarks.value());
    if (number) {
        checkRange(remarks, row, *number);
    } else {
        checkBadNumber(remarks, row.whenMissing);
    }
}

void checkDecimalRow(EntryRemarks& remarks, SettingsContext& context, const SettingKey& row) {
    remarks.lookForComment(Semicolons::Comment);
    const bool isFee = isRow(row, keys::subscriptionFees);
    remarks.text(remarks.entry().key);
    checkCollision(remarks, isFee ? context.fees : context.bonds);
    double number = 0.0;
    const std::string_view value = remarks.value();
    const std::string_view counts = isFee ? "0" : row.whenMissing;
    if (standin::readDecimal(value, number)) {
        checkLeast(remarks, value, 0.0, "is negative, but counts; write 0 or more");
    } else if (value.empty()) {
        remarks.say(RuleId::NotANumber, value,
                    [&] { return fmt::format("there is no value, so {} counts; write one", counts); });
    } else {
        remarks.wrong(RuleId::NotANumber, value,
                      [&] { return fmt::format("is no number, so {} counts; write a number", counts); });
    }
}

}  // namespace ttconfig
