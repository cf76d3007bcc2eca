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

// One answer that is not the same from the new text as from the old one.
// NOLINTNEXTLINE(bugprone-exception-escape): moving a JSON value asserts what holds, and throws nothing
struct Change {
    ChangeTopic topic = ChangeTopic::Switch;
    std::string subject;   // whom it is about: "platform 12", "every other platform", "SH-600000", "product ag"
    std::string question;  // the operation, and what it takes beside the subject; several operations of one answer with
                           // a blank between them
    Answer before;         // as the operation answers, a rate record as the list of its numbers; null where there is no
                           // record, and where it is not known: a code without a row goes by its category
    Answer after;
    std::optional<Place> oldPlace;  // of what says it in the old text; none where nothing does
    std::optional<Place> newPlace;
    std::optional<int> platform;  // the subject, when that is one platform
};

using ChangeSink = std::function<void(Change)>;

// Tells every answer that differs between a first load of the one text and a first load of the other: platform by
// platform what is asked with a platform ID, then single values, limits, catalogues, products and funds. Every other
// platform is one that neither text names for the setting.
//
// With platforms, only what is asked with a platform ID is told, and only of these.
//
// The store turns the value of every key of the main section into a list of platforms, also of those that are known to
// hold something else; nobody asks for these lists, and their keys are told by what they are for. A key that nobody
// knows by name is a switch, asked for as isSomePt("key"). What getPts and getAllpts answer is told with that, platform
// by platform: the order of a list, a platform that is in it twice, and a key that lists nobody are form.
//
// Rows that no question reaches (limitquestions.h), rows for an item without "-" among them, are no difference, and a
// category word is asked for as a category, never as a code. A code whose own row comes or goes is told as going by its
// category, unless that comes to the same. With platform data, which have to be the installed ones, its category is
// known where they know the instrument; without, every category that a code of the market can have must come to the
// same.
void tellDifferences(const standin::SettingsText& oldText, const standin::SettingsText& newText,
                     const std::vector<int>& platforms, const standin::PlatformData* data, const ChangeSink& tell);

// The same as a list.
std::vector<Change> differences(const standin::SettingsText& oldText, const standin::SettingsText& newText,
                                const std::vector<int>& platforms = {}, const standin::PlatformData* data = nullptr);

// "on", "1000000,股", "by category": an answer of the change as a line shows it.
std::string shownBefore(const Change& change);
std::string shownAfter(const Change& change);

// " (old:88, new:91)"; empty when neither text says anything about it.
std::string placesText(const Change& change);

// "platform 12: isNeedMaxAmountPts off → on (old:88, new:91)"
std::string changeText(const Change& change);

// The change as JSON: topic, subject, platform, question, before, after, old and new place.
Answer changeJson(const Change& change);

}  // namespace ttconfig
