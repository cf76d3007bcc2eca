// Differences: finds the answers that differ between two settings texts.
// Entry points: tellDifferences(), differences(), changeText(), changeJson(), changeOf().
// Owns: the order of the topics, and how a change is shown.
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include "ttconfig/differences/differences.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "ttconfig/differences/changesink.h"
#include "ttconfig/text/answertext.h"

namespace ttconfig {

namespace {

std::string shownAnswer(const Change& change, const Answer& answer) {
    if (answer.is_boolean()) return answer.get<bool>() ? "on" : "off";
    if (answer.is_string() && answer.get_ref<const std::string&>().empty()) return "\"\"";
    if (answer.is_array() && answer.empty()) return "nothing";
    if (!answer.is_null()) return answerText(answer);
    switch (change.topic) {
        case ChangeTopic::OrderLimit:
        case ChangeTopic::RateLimit:
            return "by category";
        case ChangeTopic::Fund:
            return "on for money-market funds";
        default:
            return "none";
    }
}

Answer placeJson(const Place& place) {
    return {{"line", place.line}, {"column", place.column}};
}

}  // namespace

std::string_view wordOf(ChangeTopic topic) {
    switch (topic) {
        case ChangeTopic::Switch:
            return "switch";
        case ChangeTopic::PlatformValue:
            return "platform-value";
        case ChangeTopic::PlatformList:
            return "platform-list";
        case ChangeTopic::SingleValue:
            return "single-value";
        case ChangeTopic::Unit:
            return "unit";
        case ChangeTopic::OrderLimit:
            return "order-limit";
        case ChangeTopic::BlockTradeLimit:
            return "block-trade-limit";
        case ChangeTopic::RateLimit:
            return "rate-limit";
        case ChangeTopic::BondLimit:
            return "bond-limit";
        case ChangeTopic::Catalogue:
            return "catalogue";
        case ChangeTopic::Product:
            return "product";
        case ChangeTopic::Fund:
            return "fund";
    }
    return "";
}

Change changeOf(ChangeTopic topic, std::string subject, std::string question, Said old, Said now) {
    Change change;
    change.topic = topic;
    change.subject = std::move(subject);
    change.question = std::move(question);
    change.before = std::move(old.answer);
    change.after = std::move(now.answer);
    change.oldPlace = old.place;
    change.newPlace = now.place;
    return change;
}

Change changeOf(ChangeTopic topic, int platform, std::string question, Said old, Said now) {
    Change change =
        changeOf(topic, "platform " + std::to_string(platform), std::move(question), std::move(old), std::move(now));
    change.platform = platform;
    return change;
}

bool haveSameEntries(const TextPair& texts, std::string_view section) {
    const auto* before = texts.before.findSection(section);
    const auto* after = texts.after.findSection(section);
    if (before == nullptr || after == nullptr) return before == after;
    return std::equal(before->entries.begin(), before->entries.end(), after->entries.begin(), after->entries.end(),
                      [](const standin::SettingsEntry& left, const standin::SettingsEntry& right) {
                          return left.key == right.key && left.value == right.value;
                      });
}

bool isSameNumber(double left, double right) {
    return left == right || (std::isnan(left) && std::isnan(right));
}

bool isWanted(const std::vector<int>& wanted, int platform) {
    return wanted.empty() || std::binary_search(wanted.begin(), wanted.end(), platform);
}

void tellDifferences(const standin::SettingsText& oldText, const standin::SettingsText& newText,
                     const std::vector<int>& platforms, const standin::PlatformData* data, const ChangeSink& tell) {
    const TextPair texts{oldText, newText, data};
    std::vector<int> wanted = platforms;
    std::sort(wanted.begin(), wanted.end());
    wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
    tellPlatformChanges(texts, wanted, tell);
    if (!wanted.empty()) return;
    tellSingleValueChanges(texts, tell);
    tellLimitChanges(texts, tell);
    tellBondChanges(texts, tell);
    tellCatalogueChanges(texts, tell);
    tellProductChanges(texts, tell);
    tellFundChanges(texts, tell);
}

std::vector<Change> differences(const standin::SettingsText& oldText, const standin::SettingsText& newText,
                                const std::vector<int>& platforms, const standin::PlatformData* data) {
    std::vector<Change> changes;
    tellDifferences(oldText, newText, platforms, data,
                    [&changes](Change change) { changes.push_back(std::move(change)); });
    return changes;
}

std::string shownBefore(const Change& change) {
    return shownAnswer(change, change.before);
}

std::string shownAfter(const Change& change) {
    return shownAnswer(change, change.after);
}

std::string placesText(const Change& change) {
    if (!change.oldPlace && !change.newPlace) return {};
    std::string text = " (";
    if (change.oldPlace) text += "old:" + std::to_string(change.oldPlace->line);
    if (change.oldPlace && change.newPlace) text += ", ";
    if (change.newPlace) text += "new:" + std::to_string(change.newPlace->line);
    return text + ')';
}

std::string changeText(const Change& change) {
    return change.subject + ": " + change.question + ' ' + shownBefore(change) + " → " + shownAfter(change) +
           placesText(change);
}

Answer changeJson(const Change& change) {
    Answer json = {{"topic", wordOf(change.topic)}, {"subject", change.subject}};
    if (change.platform) json["platform"] = *change.platform;
    json["question"] = change.question;
    json["before"] = change.before;
    json["after"] = change.after;
    if (change.oldPlace) json["old"] = placeJson(*change.oldPlace);
    if (change.newPlace) json["new"] = placeJson(*change.newPlace);
    return json;
}

}  // namespace ttconfig
