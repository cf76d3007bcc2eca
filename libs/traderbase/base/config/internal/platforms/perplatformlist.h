#pragma once

#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "traderbase/base/config/internal/platforms/perplatformtable.h"
#include "traderbase/base/config/internal/text/badvalue.h"
#include "traderbase/base/config/internal/text/splitting.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

// Per-platform lists: items separated by ";", each a platform ID, ":" and a value, or a value alone, which is the
// default for the platforms that are not named. 12:1;15:0;1 says 1 for every platform but 15.

namespace ttservice::internal {

enum class PerPlatformItemKind {
    Entry,           // platform:value
    Default,         // value
    BuiltInDefault,  // nothing: back to the default that the setting is born with
    BadPlatform,     // the text before ":" is no platform ID
    BadValue         // the value is none of its type
};

template <typename Value>
struct PerPlatformItem {
    PerPlatformItemKind kind;
    std::string_view text;
    int platform = 0;
    Value value = Value();
};

template <typename Value>
PerPlatformItem<Value> perPlatformItem(std::string_view text) {
    if (text.empty()) return {PerPlatformItemKind::BuiltInDefault, text};
    const auto colon = text.find(':');
    const bool isEntry = colon != std::string_view::npos;
    const auto platform = isEntry ? strictInt(text.substr(0, colon)) : std::optional<int>(0);
    if (!platform) return {PerPlatformItemKind::BadPlatform, text};
    const auto value = strictValue<Value>(isEntry ? text.substr(colon + 1) : text);
    if (!value) return {PerPlatformItemKind::BadValue, text, *platform};
    return {isEntry ? PerPlatformItemKind::Entry : PerPlatformItemKind::Default, text, *platform, *value};
}

// Enters one item. A bad one is passed over with one line on the standard error stream.
template <typename Value>
void enterPerPlatformItem(std::string_view text, const Value& builtIn, PerPlatformTable<Value>& table) {
    const auto item = perPlatformItem<Value>(text);
    switch (item.kind) {
        case PerPlatformItemKind::Entry:
            table.byPlatform[item.platform] = item.value;
            break;
        case PerPlatformItemKind::Default:
            table.byDefault = item.value;
            break;
        case PerPlatformItemKind::BuiltInDefault:
            table.byDefault = builtIn;
            break;
        case PerPlatformItemKind::BadPlatform:
        case PerPlatformItemKind::BadValue:
            reportBadValue();
            break;
    }
}

// Reads a list whose runs of ";" count as one. The entries are replaced; the default is kept from the load before when
// the text names platforms and nothing else.
template <typename Value>
void readPerPlatformList(std::string_view text, const Value& builtIn, PerPlatformTable<Value>& table) {
    PerPlatformTable<Value> fresh{{}, table.byDefault};
    splitSqueezed(text, ';', [&](std::string_view item) { enterPerPlatformItem(item, builtIn, fresh); });
    table = std::move(fresh);
}

// The same for a list in which every ";" separates: an empty item in the middle sets the built-in default as well.
template <typename Value>
void readPerPlatformListKeepEmpty(std::string_view text, const Value& builtIn, PerPlatformTable<Value>& table) {
    PerPlatformTable<Value> fresh{{}, table.byDefault};
    splitKeepEmpty(text, ';', [&](std::string_view item) { enterPerPlatformItem(item, builtIn, fresh); });
    table = std::move(fresh);
}

}  // namespace ttservice::internal
