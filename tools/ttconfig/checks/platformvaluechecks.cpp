// Platform value checks: answers what is wrong with a value by platform.
// Doors: checkPlatformValues().
// Owns: nothing.
// Covered by tests/tools/ttconfig/findings/checkrules_test.cpp.

#include <fmt/format.h>

#include <type_traits>
#include <unordered_map>

#include "traderbase/base/config/internal/platforms/perplatformlist.h"
#include "ttconfig/checks/numberchecks.h"
#include "ttconfig/checks/valuechecks.h"
#include "ttconfig/checks/valueranges.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/uppercase.h"

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
        : remarks(target), row(key), range(rangeOf(key)), builtIn(valueWhenMissing<Value>(key)) {}

    void add(std::string_view text) {
        const auto item = perPlatformItem<Value>(text);
        switch (item.kind) {
            case PerPlatformItemKind::Entry:
                return addEntry(item);
            case PerPlatformItemKind::Default:
                checkValueRange(remarks, range, text);
                return addDefault(item.text, item.value, true);
            case PerPlatformItemKind::BuiltInDefault:
                return addDefault(item.text, builtIn, false);
            case PerPlatformItemKind::BadPlatform:
                return sayBadPlatform(text);
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
        checkValueRange(remarks, range, item.text.substr(item.text.find(':') + 1));
    }

    void addDefault(std::string_view text, Value value, bool isWritten) {
        if (hasWritten && value != written) {
            remarks.say(
                RuleId::DefaultOverwritten, writtenText,
                [&] {
                    // Several defaults and no platform are likely a list of platforms.
                    return fmt::format("the default {} does not count: {} at {} sets it to {}{}", shown(written),
                                       isWritten ? "the later item" : "the empty item", named(remarks.placeOf(text)),
                                       shown(value), seen.empty() ? "; an item for a platform is platform:value" : "");
                },
                remarks.placeOf(text));
        }
        hasDefault = true;
        hasWritten = isWritten;
        written = value;
        writtenText = text;
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
        hasDefault = hasDefault || !isEntry;  // meant as one, so that the lack of one is not told as well
        if (isEntry && value.empty()) {
            remarks.say(RuleId::BadPlatformValue, text,
                        "there is no value behind the \":\", and the item is passed over; write one");
        } else if (const std::string items = asItems(text);
                   items != text && areItems(items) && numberMeant(value, kKind).empty()) {
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

    // The text with ";" wherever something else may have been meant to separate items.
    static std::string asItems(std::string_view text) {
        std::string items;
        splitDropEmpty(withSigns(inAscii(text), kOtherSigns, ';'), ';',
                       [&items](std::string_view item) { items.append(items.empty() ? "" : ";").append(item); });
        return items;
    }

    // Whether every one of them can be read.
    static bool areItems(std::string_view items) {
        bool areGood = true;
        splitKeepEmpty(items, ';', [&areGood](std::string_view item) {
            const PerPlatformItemKind kind = perPlatformItem<Value>(item).kind;
            areGood = areGood && (kind == PerPlatformItemKind::Entry || kind == PerPlatformItemKind::Default);
        });
        return areGood && items.find(':') != std::string_view::npos;
    }

    // What to write instead of a value that is none.
    std::string advice(std::string_view value, bool isEntry) const {
        if (const std::string item = withSigns(value, "=", ':'); item != value && areItems(item)) {
            return "write " + item;
        }
        const std::string_view flag = isFlag() ? flagMeant(value) : std::string_view();
        if (!flag.empty()) return fmt::format("write {}", flag);
        if (isFlag() && !isEntry && strictInt(value)) {
            return fmt::format("write 0 or 1, or {}:1 for platform {}", value, value);
        }
        return isFlag() ? "write 0 or 1" : writeNumber(value, kKind, "write a number");
    }

    bool isFlag() const {
        return row.grammar == ValueGrammar::PerPlatformFlag || row.grammar == ValueGrammar::PerPlatformFlagKeepEmpty;
    }

    static constexpr std::string_view kOtherSigns = ",|/ ";
    static constexpr std::string_view kDropped = "the item is passed over";
    static constexpr NumberKind kKind = std::is_same_v<Value, double> ? NumberKind::Decimal : NumberKind::Integer;

    EntryRemarks& remarks;
    const SettingKey& row;
    const ValueRange* range;
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
