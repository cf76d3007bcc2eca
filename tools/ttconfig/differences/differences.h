#pragma once

#include <standin/platformdata.h>
#include <standin/settingstext.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ttconfig/calls/records.h"
#include "ttconfig/settings/place.h"

namespace ttconfig {

// What an answer is about.
enum class ChangeTopic {
    Switch,         // platform switches, by name or as isSomePt("key")
    PlatformValue,  // values by platform
    PlatformList,   // credit lists and the ETF broker client, by platform
    SingleValue,
    Unit,  // trade units that follow from a single value
    OrderLimit,
    BlockTradeLimit,
    RateLimit,
    BondLimit,
    Catalogue,  // algorithm products, types and strategies, the ETF broker client
    Product,    // subscription fees and combinations of futures products
    Fund,       // money-market funds, by platform or not
};

// The topic as a word: "switch", "platform-value", "order-limit", ...
std::string_view wordOf(ChangeTopic topic);

// One answer that differs between the old text and the new one.
// NOLINTNEXTLINE(bugprone-exception-escape): moving a JSON value asserts what holds, and throws nothing
struct Change {
    ChangeTopic topic = ChangeTopic::Switch;
    std::string subject;   // whom it is about: "platform 12", "every other platform", "SH-600000", "product ag"
    std::string question;  // the operation and its arguments other than the subject; several operations with the same
                           // answer are separated by blanks
    Answer before;         // as the operation answers, a rate record as the list of its numbers; null without a record,
                           // and for a code without a row whose category, which decides, is not known
    Answer after;
    std::optional<Place> oldPlace;  // of what decides it in the old text; none if nothing does
    std::optional<Place> newPlace;
    std::optional<int> platform;  // if the subject is a single platform
};

using ChangeSink = std::function<void(Change)>;

// Reports every answer that differs between a first load of the old text and a first load of the new one: first,
// platform by platform, the questions that take a platform ID, then single values, limits, catalogues, products and
// funds. "Every other platform" means a platform that neither text names for the setting.
//
// With platforms, reports only questions that take a platform ID, and only for these platforms.
//
// The store turns the value of every key of the main section into a list of platforms, even where the value is known to
// be something else. Nothing queries those lists, so such keys are reported by what they are for. A key that no table
// names is a switch, queried as isSomePt("key"). Reporting each platform of a list also covers getPts and getAllpts:
// the order of a list, a platform listed twice, and a key that lists no platform are not differences.
//
// A row that no question reaches (limitquestions.h), such as one for an item without "-", is not a difference. A
// category word is only asked for as a category, never as a code. If only one text has a row for a code, the code's
// category decides in the other; nothing is reported if both answers are the same. With platform data, which must be
// the installed data, the category of a known instrument is looked up there. Otherwise, every category that a code of
// the market can have must give the same answer.
void tellDifferences(const standin::SettingsText& oldText, const standin::SettingsText& newText,
                     const std::vector<int>& platforms, const standin::PlatformData* data, const ChangeSink& tell);

// The same changes as a list.
std::vector<Change> differences(const standin::SettingsText& oldText, const standin::SettingsText& newText,
                                const std::vector<int>& platforms = {}, const standin::PlatformData* data = nullptr);

// An answer of the change as a line shows it: "on", "1000000,股" or "by category".
std::string shownBefore(const Change& change);
std::string shownAfter(const Change& change);

// " (old:88, new:91)"; empty when the answer has no place in either text.
std::string placesText(const Change& change);

// For example "platform 12: isNeedMaxAmountPts off → on (old:88, new:91)".
std::string changeText(const Change& change);

// The change as JSON: topic, subject, platform, question, before, after, old and new place.
Answer changeJson(const Change& change);

}  // namespace ttconfig
