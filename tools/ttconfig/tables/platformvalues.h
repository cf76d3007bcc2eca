#pragma once

#include <standin/settingstext.h>

#include <map>
#include <optional>
#include <string_view>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"
#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/settings/place.h"
#include "ttconfig/text/answer.h"

// Values that are given platform by platform, by the grammar of their key. A number here is a flag's 0 or 1, a whole
// number or a decimal.

namespace ttconfig {

struct PlatformItem : ttservice::internal::PerPlatformItem<double> {
    Place place;

    bool isEntryOf(int asked) const {
        return kind == ttservice::internal::PerPlatformItemKind::Entry && platform == asked;
    }
    bool saysDefault() const { return kind == ttservice::internal::PerPlatformItemKind::Default || isBuiltInDefault(); }
    bool isBuiltInDefault() const { return kind == ttservice::internal::PerPlatformItemKind::BuiltInDefault; }
};

// The item that the text is under the key.
ttservice::internal::PerPlatformItem<double> platformItem(const ttservice::internal::SettingKey& key,
                                                          std::string_view text);

// Hands each item of the entry's value to the sink, bad ones included. A value of a million items is gone through, and
// not held.
template <typename Sink>
void forEachPlatformItem(const standin::SettingsEntry& entry, const ttservice::internal::SettingKey& key, Sink&& sink) {
    ttservice::internal::forEachPerPlatformText(entry.value, keepsEmptyItems(key.grammar), [&](std::string_view text) {
        sink(PlatformItem{platformItem(key, text), placeInValue(entry, text)});
    });
}

// The number as the answer that it is: true, 12 or 0.5.
Answer numberAnswer(const ttservice::internal::SettingKey& key, double number);

// An operation that such a key feeds, and what it makes of the value; see settingkeys.def.
struct PlatformQuestion {
    enum class Kind { Value, IsNotZero, IsNamed };

    PlatformQuestion(const ttservice::internal::SettingKey& settingKey, std::string_view name);

    const ttservice::internal::SettingKey* key;
    std::string_view operation;
    Kind kind;
};

template <typename Sink>
void forEachPlatformQuestion(const ttservice::internal::SettingKey& key, Sink&& sink) {
    ttservice::internal::splitDropEmpty(key.feeds, ' ',
                                        [&](std::string_view operation) { sink(PlatformQuestion(key, operation)); });
}

// What counts of a value after a first load.
struct PlatformValueTable {
    const ttservice::internal::SettingKey* key = nullptr;
    const standin::SettingsEntry* entry = nullptr;  // the one that counts; null when the key is missing
    std::map<int, PlatformItem> byPlatform;
    std::optional<PlatformItem> byDefault;  // the item that says the default

    // The item of the platform; null when none names it.
    const PlatformItem* find(int platform) const;
    double defaultNumber() const;
    // Without a platform, of all that are not named.
    Answer answer(const PlatformQuestion& asked, std::optional<int> platform) const;
    // Where that is said; none without the key.
    std::optional<Place> place(std::optional<int> platform) const;
};

// The table of the key; with a platform, of that one and the default alone.
PlatformValueTable platformValues(const standin::SettingsText& text, const ttservice::internal::SettingKey& key,
                                  std::optional<int> only = std::nullopt);

}  // namespace ttconfig
