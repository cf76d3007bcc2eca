// Platform value checks: reports what is wrong with a value by platform.
// Entry points: checkPlatformValues().
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <unordered_map>

#include "ttconfig/checks/numberchecks.h"
#include "ttconfig/checks/valuechecks.h"
#include "ttconfig/checks/valueranges.h"
#include "ttconfig/tables/platformvalues.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/uppercase.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

std::string shown(double value) {
    return fmt::format("{:g}", value);
}

// Checks one value by platform, item by item.
class PlatformValueCheck {
public:
    PlatformValueCheck(EntryRemarks& target, const SettingKey& key)
        : remarks(target), row(key), range(rangeOf(key)), builtIn(valueWhenMissing<double>(key)) {}

    void add(const PlatformItem& item) {
        const std::string_view text = item.text;
        switch (item.kind) {
            case PerPlatformItemKind::Entry:
                return addEntry(item);
            case PerPlatformItemKind::Default:
                checkValueRange(remarks, range, text);
                return addDefault(item, item.value);
            case PerPlatformItemKind::BuiltInDefault:
                return addDefault(item, builtIn);
            case PerPlatformItemKind::BadPlatform:
                return sayBadPlatform(text);
            case PerPlatformItemKind::BadValue:
                return sayBadValue(text);
        }
    }

    void end() {
        if (seen.empty() || hasDefault || builtIn == 0) return;
        remarks.say(
            RuleId::MissingDefaultItem, remarks.value(),
            fmt::format("no item says the value of the other platforms: it is {} after a start, not the default "
                        "{}, and stays as it was after a reload; add \";{}\" at the end",
                        shown(0), row.whenMissing, row.whenMissing));
    }

private:
    void addEntry(const PlatformItem& item) {
        const auto [known, isNew] = seen.emplace(item.platform, item.place);
        if (!isNew) {
            remarks.say(RuleId::RepeatedItem, item.text,
                        fmt::format("platform {} has a value already at {}; this later one counts, take one out",
                                    item.platform, named(known->second)),
                        known->second);
            known->second = item.place;
        }
        checkValueRange(remarks, range, item.text.substr(item.text.find(':') + 1));
    }

    void addDefault(const PlatformItem& item, double value) {
        const bool isWritten = !item.isBuiltInDefault();
        if (hasWritten && value != written) {
            remarks.say(
                RuleId::DefaultOverwritten, writtenText,
                [&] {
                    // Several defaults without any platform are probably meant as a list of platforms.
                    return fmt::format("the default {} does not count: {} at {} sets it to {}{}", shown(written),
                                       isWritten ? "the later item" : "the empty item", named(item.place), shown(value),
                                       seen.empty() ? "; an item for a platform is platform:value" : "");
                },
                item.place);
        }
        hasDefault = true;
        hasWritten = isWritten;
        written = value;
        writtenText = item.text;
    }

    void sayBadPlatform(std::string_view text) {
        const std::size_t colon = text.find(':');
        const std::string_view platform = text.substr(0, colon);
        const std::string_view value = text.substr(colon + 1);
        if (platform.empty()) {
            remarks.say(RuleId::BadPlatformId, text,
                        "there is no platform in front of the \":\", and the item is passed over; write one");
        } else if (isNumberList(platform, kOtherSigns)) {
            remarks.wrong(RuleId::WrongSeparator, text, [&] {
                std::string items;
                for (const char c : platform) {
                    items +=
                        kOtherSigns.find(c) == std::string_view::npos ? std::string(1, c) : fmt::format(":{};", value);
                }
                items += fmt::format(":{}", value);
                return fmt::format("is one item, and its platform is none: {}{}", kDropped,
                                   orWrite(items, "write an item for each platform"));
            });
        } else if (isSameUpper(platform, "default") || isSameUpper(platform, "all") || platform == "*") {
            remarks.wrong(RuleId::BadPlatformId, platform,
                          "is no platform ID, and the item is passed over; the value of all other platforms stands "
                          "alone, without a \":\"");
        } else {
            checkPlatformId(remarks, platform, kDropped, "write a whole number");
        }
    }

    void sayBadValue(std::string_view text) {
        const std::size_t colon = text.find(':');
        const bool isEntry = colon != std::string_view::npos;
        const std::string_view value = isEntry ? text.substr(colon + 1) : text;
        hasDefault = hasDefault || !isEntry;  // meant as a default: do not also report that there is none
        if (isEntry && value.empty()) {
            remarks.say(RuleId::BadPlatformValue, text,
                        "there is no value behind the \":\", and the item is passed over; write one");
        } else if (const std::string items = asItems(text);
                   items != text && areItems(items) && numberMeant(value, kind).empty()) {
            remarks.wrong(RuleId::WrongSeparator, text, [&] {
                return fmt::format("is one item and says nothing: {}{}", kDropped,
                                   orWrite(items, "items are separated by \";\""));
            });
        } else if (value.find(':') != std::string_view::npos) {
            remarks.wrong(RuleId::TooManyColons, text, [&] {
                return fmt::format(
                    "has more than one \":\", and {}; an item is platform:value, the next one stands "
                    "behind a \";\"",
                    kDropped);
            });
        } else if (row.grammar == ValueGrammar::PerPlatformInteger && isWholeNumber(value)) {
            remarks.wrong(RuleId::NumberOutOfRange, value,
                          [&] { return fmt::format("does not fit 32 bits: {}; write a smaller number", kDropped); });
        } else {
            remarks.wrong(RuleId::BadPlatformValue, value, [&] {
                return fmt::format("is no value of this key: {}; {}", kDropped, advice(value, isEntry));
            });
        }
    }

    // The text with ";" in place of every sign that may have been meant to separate items.
    static std::string asItems(std::string_view text) {
        std::string items;
        splitDropEmpty(withSigns(inAscii(text), kOtherSigns, ';'), ';',
                       [&items](std::string_view item) { items.append(items.empty() ? "" : ";").append(item); });
        return items;
    }

    // Whether every item can be read and at least one names a platform.
    bool areItems(std::string_view items) const {
        bool areGood = true;
        splitKeepEmpty(items, ';', [&](std::string_view item) {
            const PerPlatformItemKind read = platformItem(row, item).kind;
            areGood = areGood && (read == PerPlatformItemKind::Entry || read == PerPlatformItemKind::Default);
        });
        return areGood && items.find(':') != std::string_view::npos;
    }

    // What to write instead of a value that cannot be read.
    std::string advice(std::string_view value, bool isEntry) const {
        if (const std::string item = withSigns(value, "=", ':'); item != value && areItems(item)) {
            return "write " + item;
        }
        const std::string_view flag = isFlag() ? flagMeant(value) : std::string_view();
        if (!flag.empty()) return fmt::format("write {}", flag);
        if (isFlag() && !isEntry && strictInt(value)) {
            return fmt::format("write 0 or 1, or {}:1 for platform {}", value, value);
        }
        return isFlag() ? "write 0 or 1" : writeNumber(value, kind, "write a number");
    }

    bool isFlag() const {
        return row.grammar == ValueGrammar::PerPlatformFlag || row.grammar == ValueGrammar::PerPlatformFlagKeepEmpty;
    }

    static constexpr std::string_view kOtherSigns = ",|/ ";
    static constexpr std::string_view kDropped = "the item is passed over";

    EntryRemarks& remarks;
    const SettingKey& row;
    const ValueRange* range;
    const NumberKind kind =
        row.grammar == ValueGrammar::PerPlatformDecimalKeepEmpty ? NumberKind::Decimal : NumberKind::Integer;
    const double builtIn;
    std::unordered_map<int, Place> seen;
    bool hasDefault = false;
    bool hasWritten = false;
    double written = 0;
    std::string_view writtenText;
};

}  // namespace

void checkPlatformValues(EntryRemarks& remarks, const SettingKey& row) {
    remarks.lookForComment(Semicolons::CommentBeforeWords);
    if (isNumberList(remarks.value(), ",")) {
        remarks.wrong(RuleId::ValueAsList, remarks.value(),
                      "is a list of platforms without values, and is passed over; write platform:value with \";\" "
                      "between the items");
        return;
    }
    PlatformValueCheck checks(remarks, row);
    forEachPlatformItem(remarks.entry(), row, [&checks](const PlatformItem& item) { checks.add(item); });
    checks.end();
}

}  // namespace ttconfig
