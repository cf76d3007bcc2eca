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

// Per-platform values, read by the grammar of their key. Every value is held as a number; a flag is 0 or 1.

namespace ttconfig {

struct PlatformItem : ttservice::internal::PerPlatformItem<double> {
    Place place;

    bool isEntryOf(int asked) const {
        return kind == ttservice::internal::PerPlatformItemKind::Entry && platform == asked;
    }
    bool saysDefault() const { return kind == ttservice::internal::PerPlatformItemKind::Default || isBuiltInDefault(); }
    bool isBuiltInDefault() const { return kind == ttservice::internal::PerPlatformItemKind::BuiltInDefault; }
};

// Reads a text as an item of the key's value.
ttservice::internal::PerPlatformItem<double> platformItem(const ttservice::internal::SettingKey& key,
                                                          std::string_view text);

// Passes each item of the entry's value to the sink, including bad ones. Stores none of them: a value may have a
// million items.
template <typename Sink>
void forEachPlatformItem(const standin::SettingsEntry& entry, const ttservice::internal::SettingKey& key, Sink&& sink) {
    ttservice::internal::forEachPerPlatformText(entry.value, keepsEmptyItems(key.grammar), [&](std::string_view text) {
        sink(PlatformItem{platformItem(key, text), placeInValue(entry, text)});
    });
}

// The number as an answer of the key's type, such as true, 12 or 0.5.
Answer numberAnswer(const ttservice::internal::SettingKey& key, double number);

// An operation that answers from a per-platform value, and how it does so; see settingkeys.def.
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

// The items of a value that count after a first load.
struct PlatformValueTable {
    const ttservice::internal::SettingKey* key = nullptr;
    const standin::SettingsEntry* entry = nullptr;  // the one that counts; null if the key is missing
    std::map<int, PlatformItem> byPlatform;
    std::optional<PlatformItem> byDefault;  // the item that sets the default

    // The platform's item; null if no item names it.
    const PlatformItem* find(int platform) const;
    double defaultNumber() const;
    // Without a platform: the answer for all platforms that are not named.
    Answer answer(const PlatformQuestion& asked, std::optional<int> platform) const;
    // Where that answer comes from; none if the key is missing.
    std::optional<Place> place(std::optional<int> platform) const;
};

// The key's table. If `only` is given, it has that platform and the default alone.
PlatformValueTable platformValues(const standin::SettingsText& text, const ttservice::internal::SettingKey& key,
                                  std::optional<int> only = std::nullopt);

}  // namespace ttconfig
