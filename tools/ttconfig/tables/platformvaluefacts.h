#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <map>
#include <optional>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"
#include "ttconfig/settings/place.h"

namespace ttconfig {

template <typename Value>
struct PlatformValueItem {
    ttservice::internal::PerPlatformItem<Value> read;
    Place place;
};

// The value of a key that says something platform by platform, after a first load.
template <typename Value>
struct PlatformValues {
    const standin::SettingsEntry* entry = nullptr;  // the one that counts; null when the key is missing
    std::vector<PlatformValueItem<Value>> items;    // in the order written, bad ones included; none without an entry
    std::map<int, std::size_t> byPlatform;          // the item that counts for each platform named
    std::optional<std::size_t> byDefault;           // the item that says the default
    Value builtIn = Value();                        // the default that a missing key or an empty item stands for
    Value constructed = Value();                    // the default when the value names platforms and nothing else

    // The item of the platform; null when none names it.
    const PlatformValueItem<Value>* find(int platform) const {
        const auto found = byPlatform.find(platform);
        return found == byPlatform.end() ? nullptr : &items[found->second];
    }

    Value defaultValue() const {
        using ttservice::internal::PerPlatformItemKind;
        if (entry == nullptr) return builtIn;
        if (!byDefault) return constructed;
        const auto& item = items[*byDefault].read;
        return item.kind == PerPlatformItemKind::BuiltInDefault ? builtIn : item.value;
    }

    Value at(int platform) const {
        const auto* item = find(platform);
        return item == nullptr ? defaultValue() : item->read.value;
    }
};

namespace detail {

constexpr bool isDefault(ttservice::internal::PerPlatformItemKind kind) {
    using ttservice::internal::PerPlatformItemKind;
    return kind == PerPlatformItemKind::Default || kind == PerPlatformItemKind::BuiltInDefault;
}

template <typename Value>
void addItem(PlatformValues<Value>& values, const PlatformValueItem<Value>& item) {
    using ttservice::internal::PerPlatformItemKind;
    const std::size_t number = values.items.size();
    values.items.push_back(item);
    if (item.read.kind == PerPlatformItemKind::Entry) values.byPlatform[item.read.platform] = number;
    if (isDefault(item.read.kind)) values.byDefault = number;
}

}  // namespace detail

// Whether every ";" of the key's value separates, or a run of them counts as one.
constexpr bool everySemicolonCounts(ttservice::internal::ValueGrammar grammar) {
    using ttservice::internal::ValueGrammar;
    return grammar == ValueGrammar::PerPlatformFlagKeepEmpty || grammar == ValueGrammar::PerPlatformDecimalKeepEmpty;
}

// Hands each item of the entry's value to the sink, as the key's grammar has it. Value is the grammar's type: bool, int
// or double. A value of a million items is gone through, and not held.
template <typename Value, typename Sink>
void forEachPlatformItem(const standin::SettingsEntry& entry, const ttservice::internal::SettingKey& key, Sink&& sink) {
    namespace internal = ttservice::internal;
    const auto read = [&](std::string_view text) {
        sink(PlatformValueItem<Value>{internal::perPlatformItem<Value>(text), placeInValue(entry, text)});
    };
    if (everySemicolonCounts(key.grammar)) {
        internal::splitKeepEmpty(entry.value, ';', read);
    } else {
        internal::splitSqueezed(entry.value, ';', read);
    }
}

template <typename Value>
PlatformValues<Value> platformValues(const standin::SettingsText& text, const ttservice::internal::SettingKey& key) {
    PlatformValues<Value> values;
    values.builtIn = ttservice::internal::valueWhenMissing<Value>(key);
    values.entry = text.findEntry(key.section, key.key);
    if (values.entry == nullptr) return values;
    forEachPlatformItem<Value>(*values.entry, key,
                               [&values](const PlatformValueItem<Value>& item) { detail::addItem(values, item); });
    return values;
}

}  // namespace ttconfig
