// Platform value changes: finds the platforms for which a value differs, and treats all that are not named as one.
// Entry points: tellPlatformValueChanges(), tellSpecialValues().
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <algorithm>
#include <utility>

#include "ttconfig/differences/changesink.h"
#include "ttconfig/tables/platformvalues.h"

namespace ttconfig {

namespace {

using ttservice::internal::SettingKey;

// Without a platform, the change is for all platforms that are not named.
Change valueChange(const PlatformQuestion& asked, std::optional<int> platform, Said old, Said now) {
    std::string question(asked.operation);
    if (platform) {
        return changeOf(ChangeTopic::PlatformValue, *platform, std::move(question), std::move(old), std::move(now));
    }
    return changeOf(ChangeTopic::PlatformValue, "every other platform", std::move(question), std::move(old),
                    std::move(now));
}

// The platforms that either table names.
std::vector<int> namedPlatforms(const PlatformValueTable& before, const PlatformValueTable& after) {
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

void tellChangesOf(const TextPair& texts, const SettingKey& key, const std::vector<int>& wanted,
                   const ChangeSink& tell) {
    const PlatformValueTable before = platformValues(texts.before, key);
    const PlatformValueTable after = platformValues(texts.after, key);
    const std::vector<int> platforms = wanted.empty() ? namedPlatforms(before, after) : wanted;
    forEachPlatformQuestion(key, [&](const PlatformQuestion& asked) {
        const auto compare = [&](std::optional<int> platform) {
            const Answer old = before.answer(asked, platform);
            const Answer now = after.answer(asked, platform);
            if (old == now) return;
            tell(valueChange(asked, platform, {old, before.place(platform)}, {now, after.place(platform)}));
        };
        for (const int platform : platforms)
            compare(platform);
        if (wanted.empty()) compare(std::nullopt);
    });
}

template <typename Sink>
void forEachPlatformKey(Sink&& sink) {
    for (const SettingKey& key : ttservice::internal::kSettingKeys) {
        if (isPerPlatform(key.grammar) && !key.feeds.empty()) sink(key);
    }
}

}  // namespace

void tellPlatformValueChanges(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    forEachPlatformKey([&](const SettingKey& key) {
        if (!entriesOf(texts, key).sayTheSame()) tellChangesOf(texts, key, wanted, tell);
    });
}

void tellSpecialValues(const standin::SettingsText& text, int platform, const ChangeSink& tell) {
    forEachPlatformKey([&](const SettingKey& key) {
        const PlatformValueTable values = platformValues(text, key, platform);
        if (values.find(platform) == nullptr) return;
        forEachPlatformQuestion(key, [&](const PlatformQuestion& asked) {
            const Answer others = values.answer(asked, std::nullopt);
            const Answer own = values.answer(asked, platform);
            if (others != own) tell(valueChange(asked, platform, {others}, {own, values.place(platform)}));
        });
    });
}

}  // namespace ttconfig
