// Single value checks: reports what is wrong with a value for the whole client, a fee or a ratio.
// Entry points: checkSingleValue(), checkDecimalRow().
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>
#include <standin/numbertext.h>

#include "ttconfig/checks/listchecks.h"
#include "ttconfig/checks/numberchecks.h"
#include "ttconfig/checks/valuechecks.h"
#include "ttconfig/checks/valueranges.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

void checkText(EntryRemarks& remarks) {
    remarks.text(remarks.value(), FullWidth::Fine);
}

void checkBadNumber(EntryRemarks& remarks, const SettingKey& row) {
    const std::string_view value = remarks.value();
    const std::string counts = fmt::format("so the default {} counts", row.whenMissing);
    const std::string meant = wholeNumberIn(value);
    if (value.empty()) {
        remarks.say(RuleId::NotANumber, value, [&] { return fmt::format("there is no value, {}; write one", counts); });
    } else if (isWholeNumber(value)) {
        remarks.wrong(RuleId::NumberOutOfRange, value,
                      [&] { return fmt::format("does not fit 32 bits, {}; write a smaller one", counts); });
    } else if (meant.empty() && isNumberList(value, ",;:")) {
        remarks.wrong(RuleId::ValueAsList, value, [&] {
            return fmt::format("is a list where one value for all belongs, {}; write one number", counts);
        });
    } else {
        const std::string_view flag = row.grammar == ValueGrammar::Flag ? flagMeant(value) : std::string_view();
        remarks.wrong(RuleId::NotANumber, value, [&] {
            if (!flag.empty()) return fmt::format("is no number, {}; write {}", counts, flag);
            if (meant.empty()) return fmt::format("is no whole number, {}; write one", counts);
            return fmt::format("is no plain whole number, {}; write {}", counts, meant);
        });
    }
}

void checkFlag(EntryRemarks& remarks, int value) {
    if (value == 0 || value == 1) return;
    remarks.say(RuleId::FlagNotZeroOrOne, remarks.value(),
                [&] { return fmt::format("{} is off, as is every number but 1; write 0 or 1", value); });
}

// Reports a key that equals an earlier one in upper case: the upper-case form has the value of the earlier key.
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
    if (!number) return checkBadNumber(remarks, row);
    if (row.grammar == ValueGrammar::Flag) return checkFlag(remarks, *number);
    checkValueRange(remarks, rangeOf(row), remarks.value());
}

void checkDecimalRow(EntryRemarks& remarks, SettingsContext& context, const SettingKey& row) {
    remarks.lookForComment(Semicolons::Comment);
    const bool isFee = isRow(row, keys::subscriptionFees);
    const std::string_view key = remarks.entry().key;
    if (key.find_first_of(",;|") == std::string_view::npos) {
        checkCode(remarks, key, {});
    } else {
        remarks.wrong(RuleId::WrongSeparator, key, "is one code; write a line for each code");
    }
    checkCollision(remarks, isFee ? context.fees : context.bonds);
    double number = 0.0;
    const std::string_view value = remarks.value();
    const std::string_view counts = isFee ? "0" : row.whenMissing;
    if (standin::readDecimal(value, number)) {
        checkValueRange(remarks, rangeOf(row), value);
    } else if (value.empty()) {
        remarks.say(RuleId::NotANumber, value,
                    [&] { return fmt::format("there is no value, so {} counts; write one", counts); });
    } else {
        remarks.wrong(RuleId::NotANumber, value, [&] {
            const std::string meant = numberMeant(value, NumberKind::Decimal);
            if (meant.empty()) return fmt::format("is no number, so {} counts; write one", counts);
            return fmt::format("is no plain number, so {} counts; write {}", counts, meant);
        });
    }
}

}  // namespace ttconfig
