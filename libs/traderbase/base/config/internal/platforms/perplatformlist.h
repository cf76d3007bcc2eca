#pragma once

#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "traderbase/base/config/internal/platforms/perplatformtable.h"
#include "traderbase/base/config/internal/text/badvalue.h"
#include "traderbase/base/config/internal/text/splitting.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

// Per-platform lists: items separated by ";", each either a platform ID, ":" and a value, or a value alone, which is
// the default for platforms that are not named. "12:1;15:0;1" gives 1 for every platform but 15.

namespace ttservice::internal {

enum class PerPlatformItemKind {
    Entry,           // platform:value
    Default,         // value
    BuiltInDefault,  // empty: restores the setting's built-in default
    BadPlatform,     // the text before ":" is not a platform ID
    BadValue         // the value does not have the required type
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

// Enters one item. A bad item is skipped, with one line on the standard error stream.
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

// Reads a list in which a run of ";" counts as one separator. The entries are replaced. If the text names platforms
// only, the default of the previous load stays.
template <typename Value>
void readPerPlatformList(std::string_view text, const Value& builtIn, PerPlatformTable<Value>& table) {
    PerPlatformTable<Value> fresh{{}, table.byDefault};
    splitSqueezed(text, ';', [&](std::string_view item) { enterPerPlatformItem(item, builtIn, fresh); });
    table = std::move(fresh);
}

// The same for a list in which every ";" separates, so that an empty item in the middle also restores the built-in
// default.
template <typename Value>
void readPerPlatformListKeepEmpty(std::string_view text, const Value& builtIn, PerPlatformTable<Value>& table) {
    PerPlatformTable<Value> fresh{{}, table.byDefault};
    splitKeepEmpty(text, ';', [&](std::string_view item) { enterPerPlatformItem(item, builtIn, fresh); });
    table = std::move(fresh);
}

}  // namespace ttservice::internal
