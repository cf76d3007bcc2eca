// Platform value checks: answers what is wrong with a value by platform.
// Doors: checkPlatformValues().
// Owns: nothing.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <unordered_map>

#include "traderbase/base/config/internal/perplatformlist.h"
#include "ttconfig/findings/numberchecks.h"
#include "ttconfig/findings/valuechecks.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

template <typename Value>
std::string shown(Value value) {
    return fmt::format("{:g}", static_cast<double>(value));
}

// One value by platform, item by item.
template <typename Value>
class PlatformValueCheck {
public:
    PlatformValueCheck(EntryRemarks& target, const SettingKey& key)
        : remarks(target), row(key), builtIn(valueWhenMissing<Value>(key)) {}

    void add(std::string_view text) {
        const auto item = perPlatformItem<Value>(text);
        switch (item.kind) {
            case PerPlatformItemKind::Entry:
                return addEntry(item);
            case PerPlatformItemKind::Default:
                checkRange(text, item.value);
                return addDefault(item.text, item.value, true);
            case PerPlatformItemKind::BuiltInDefault:
                return addDefault(item.text, builtIn, false);
            case PerPlatformItemKind::BadPlatform:
                checkPlatformId(remarks, text.substr(0, text.find(':')),
                                "the item is passed over; write a whole number");
                return;
            case PerPlatformItemKind::BadValue:
                return sayBadValue(text);
        }
    }

    void end() {
        if (seen.empty() || hasDefault || Value() == builtIn) return;
        remarks.say(
            RuleId::MissingDefaultItem, remarks.value(),
            fmt::format("no item says the value of the other platforms: it is {} after a start, not the default "
                        "{}, and stays as it was after a reload; add \";{}\" at the end",
                        shown(Value()), row.whenMissing, row.whenMissing));
    }

private:
    void addEntry(const PerPlatformItem<Value>& item) {
        const Place place = remarks.placeOf(item.text);
        const auto [known, isNew] = seen.emplace(item.platform, place);
        if (!isNew) {
            remarks.say(RuleId::RepeatedItem, item.text,
                        fmt::format("platform {} has a value already at {}; this later one counts, take one out",
                                    item.platform, named(known->second)),
                        known->second);
            known->second = place;
        }
        checkRange(item.text.substr(item.text.find(':') + 1), item.value);
    }

    void checkRange(std::string_view text, Value value) {
        if (isRow(row, keys::counterMaxCompacts) && value < Value(1)) {
            remarks.say(RuleId::ValueOutOfRange, text, [&] {
                return fmt::format("{} is no number of answers, but counts; write 1 or more", shown(value));
            });
        } else if (isRow(row, keys::specialEnableVolRate) && value < Value(0)) {
            remarks.say(RuleId::ValueOutOfRange, text,
                        [&] { return fmt::format("{} is no rate, but counts; write 0 or more", shown(value)); });
        }
    }

    void addDefault(std::string_view text, Value value, bool isWritten) {
        if (hasWritten && value != written) {
            remarks.say(
                RuleId::DefaultOverwritten, writtenText,
                [&] {
                    return fmt::format("the default {} does not count: {} at {} sets it to {}", shown(written),
                                       isWritten ? "the later item" : "the empty item", named(remarks.placeOf(text)),
                                       shown(value));
                },
                remarks.placeOf(text));
        }
        hasDefault = true;
        hasWritten = isWritten;
        written = value;
        writtenText = text;
    }

    void sayBadValue(std::string_view text) {
        const std::size_t colon = text.find(':');
        const bool isEntry = colon != std::string_view::npos;
        const std::string_view value = isEntry ? text.substr(colon + 1) : text;
        hasDefault = hasDefault || !isEntry;  // meant as one, so that the lack of one is not told as well
        constexpr std::string_view kDropped = "the item is passed over";
        if (value.find_first_of(",:") != std::string_view::npos) {
            remarks.wrong(RuleId::WrongSeparator, text, [&] {
                return fmt::format(
                    "is one item and says nothing: {}; items are "
                    "separated by \";\"",
                    kDropped);
            });
        } else if (row.grammar == ValueGrammar::PerPlatformInteger && isWholeNumber(value)) {
            remarks.wrong(RuleId::NumberOutOfRange, value,
                          [&] { return fmt::format("does not fit 32 bits: {}", kDropped); });
        } else {
            remarks.wrong(
                RuleId::BadPlatformValue, value,
                fmt::format("is no value of this key: {}; write {}", kDropped, isFlag() ? "0 or 1" : "a number"));
        }
    }

    bool isFlag() const {
        return row.grammar == ValueGrammar::PerPlatformFlag || row.grammar == ValueGrammar::PerPlatformFlagKeepEmpty;
    }

    EntryRemarks& remarks;
    const SettingKey& row;
    const Value builtIn;
    std::unordered_map<int, Place> seen;
    bool hasDefault = false;
    bool hasWritten = false;
    Value written = Value();
    std::string_view writtenText;
};

template <typename Value>
void check(EntryRemarks& remarks, const SettingKey& row) {
    PlatformValueCheck<Value> checks(remarks, row);
    const auto add = [&checks](std::string_view item) { checks.add(item); };
    const bool keepsEmpty = row.grammar == ValueGrammar::PerPlatformFlagKeepEmpty ||
                            row.grammar == ValueGrammar::PerPlatformDecimalKeepEmpty;
    if (keepsEmpty) {
        splitKeepEmpty(remarks.value(), ';', add);
    } else {
        splitSqueezed(remarks.value(), ';', add);
    }
    checks.end();
}

}  // namespace

void checkPlatformValues(EntryRemarks& remarks, const SettingKey& row) {
    remarks.lookForComment(Semicolons::CommentBeforeWords);
    if (isNumberList(remarks.value(), ",")) {
        remarks.wrong(RuleId::ValueAsList, remarks.value(),
                      "is a list of platforms without values, and is passed over; write platform:value with \";\" "
                      "between the items");
        return;
    }
    switch (row.grammar) {
        case ValueGrammar::PerPlatformFlag:
        case ValueGrammar::PerPlatformFlagKeepEmpty:
            return check<bool>(remarks, row);
        case ValueGrammar::PerPlatformInteger:
            return check<int>(remarks, row);
        default:
            return check<double>(remarks, row);
    }
}

}  // namespace ttconfig
