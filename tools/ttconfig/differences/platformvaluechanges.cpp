// Changes of values by platform: answers for which platforms such a value differs, and for the rest in one.
// Doors: tellPlatformValueChanges(), tellSpecialValues().
// Owns: which operation answers from which key; a test holds it against the key catalogue.
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <algorithm>
#include <type_traits>
#include <utility>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/tables/platformvaluefacts.h"

namespace ttconfig {

namespace {

namespace keys = ttservice::internal::keys;
using ttservice::internal::SettingKey;

// Without a platform, of all that are not named.
Change valueChange(std::optional<int> platform, const char* question, const Answer& old, const Answer& now,
                   std::optional<Place> oldPlace, std::optional<Place> newPlace) {
    Said before{old, oldPlace};
    Said after{now, newPlace};
    if (platform) {
        return changeOf(ChangeTopic::PlatformValue, *platform, question, std::move(before), std::move(after));
    }
    return changeOf(ChangeTopic::PlatformValue, "every other platform", question, std::move(before), std::move(after));
}

template <typename Value>
std::optional<Place> itemPlace(const PlatformValues<Value>& values, std::optional<int> platform) {
    const auto* item = platform ? values.find(*platform) : nullptr;
    if (item != nullptr) return item->place;
    if (values.byDefault) return values.items[*values.byDefault].place;
    if (values.entry != nullptr) return valuePlace(*values.entry);
    return std::nullopt;
}

// One key in both texts.
template <typename Value>
class ValueChanges {
public:
    ValueChanges(const TextPair& texts, const SettingKey& key, const std::vector<int>& wantedPlatforms,
                 const ChangeSink& sink)
        : before(platformValues<Value>(texts.before, key)),
          after(platformValues<Value>(texts.after, key)),
          wanted(wantedPlatforms),
          tell(sink) {}

    // The value itself, seen through what the operation makes of it.
    template <typename Seen>
    void tellValues(const char* question, Seen seen) const {
        for (const int platform : platforms()) {
            const Answer old = seen(before.at(platform));
            const Answer now = seen(after.at(platform));
            if (old != now) change(platform, question, old, now);
        }
        if (!wanted.empty()) return;
        const Answer old = seen(before.defaultValue());
        const Answer now = seen(after.defaultValue());
        if (old != now) change(std::nullopt, question, old, now);
    }

    // Whether the platform is named.
    void tellNamed(const char* question) const {
        for (const int platform : platforms()) {
            const bool old = before.find(platform) != nullptr;
            const bool now = after.find(platform) != nullptr;
            if (old != now) change(platform, question, old, now);
        }
    }

private:
    // The wanted ones, or all that are named.
    std::vector<int> platforms() const {
        if (!wanted.empty()) return wanted;
        std::vector<int> named;
        named.reserve(before.byPlatform.size() + after.byPlatform.size());
        for (const auto* values : {&before, &after}) {
            for (const auto& item : values->byPlatform)
                named.push_back(item.first);
        }
        std::sort(named.begin(), named.end());
        named.erase(std::unique(named.begin(), named.end()), named.end());
        return named;
    }

    void change(std::optional<int> platform, const char* question, const Answer& old, const Answer& now) const {
        tell(valueChange(platform, question, old, now, itemPlace(before, platform), itemPlace(after, platform)));
    }

    const PlatformValues<Value> before;
    const PlatformValues<Value> after;
    const std::vector<int>& wanted;
    const ChangeSink& tell;
};

constexpr auto kAsItIs = [](auto value) { return Answer(value); };
// Any number but 0 is yes.
constexpr auto kAsFlag = [](int value) { return Answer(value != 0); };

// One key: what is asked for the value, and, unless that is null, for whether there is one for the platform.
template <typename Value, typename Seen>
struct ValueTopic {
    using Type = Value;

    const SettingKey& key;
    const char* question;
    Seen seen;
    const char* namedQuestion;
};

template <typename Value, typename Seen, typename Visit>
void visitTopic(Visit& visit, const SettingKey& key, const char* question, Seen seen,
                const char* namedQuestion = nullptr) {
    visit(ValueTopic<Value, Seen>{key, question, seen, namedQuestion});
}

template <typename Visit>
void visitTopics(Visit visit) {
    visitTopic<bool>(visit, keys::t0ForReturnStock, "isT0ForReturnStockPts", kAsItIs);
    visitTopic<bool>(visit, keys::spxCredit, "isSPXCreditStockPts", kAsItIs);
    visitTopic<bool>(visit, keys::mainAccountCalcCompactsByDeal, "isMainAccountcalcCompactsBydealPts", kAsItIs);
    visitTopic<int>(visit, keys::renewal, "getRenewalPts", kAsItIs);
    visitTopic<int>(visit, keys::counterMaxCompacts, "getCounterMaxCompactsRespNum", kAsItIs);
    visitTopic<int>(visit, keys::counterIpwanPos, "useCounterIpwanPos", kAsFlag);
    visitTopic<bool>(visit, keys::needCheckAssureEnbuyBalance, "isNeedCheckAssureEnbuyBalancePts", kAsItIs);
    visitTopic<double>(visit, keys::specialEnableVolRate, "getSpecailEnableVolStkExchangeRate", kAsItIs,
                       "isUseSpecialEnableBalCalcVolume");
    visitTopic<double>(visit, keys::setAvailable, "getisSetavailable", kAsItIs, "isSetavailable");
}

}  // namespace

void tellPlatformValueChanges(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    visitTopics([&](const auto& topic) {
        using Value = typename std::decay_t<decltype(topic)>::Type;
        if (entriesOf(texts, topic.key).sayTheSame()) return;
        const ValueChanges<Value> changes(texts, topic.key, wanted, tell);
        changes.tellValues(topic.question, topic.seen);
        if (topic.namedQuestion != nullptr) changes.tellNamed(topic.namedQuestion);
    });
}

void tellSpecialValues(const standin::SettingsText& text, int platform, const ChangeSink& tell) {
    visitTopics([&](const auto& topic) {
        using Value = typename std::decay_t<decltype(topic)>::Type;
        const PlatformValues<Value> values = platformValues<Value>(text, topic.key);
        const auto* item = values.find(platform);
        if (item == nullptr) return;
        const auto say = [&](const char* question, const Answer& others, const Answer& own) {
            if (others != own) tell(valueChange(platform, question, others, own, std::nullopt, item->place));
        };
        say(topic.question, topic.seen(values.defaultValue()), topic.seen(item->read.value));
        if (topic.namedQuestion != nullptr) say(topic.namedQuestion, false, true);
    });
}

}  // namespace ttconfig
