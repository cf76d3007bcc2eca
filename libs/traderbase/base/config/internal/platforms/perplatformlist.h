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

// Which items count: of those that name a platform the last one, and the last one that says the default. Keeps it in
// the table's byPlatform or byDefault as what it is kept as; answers whether the item is a good one.
template <typename Value, typename Kept, typename Table>
bool keepPerPlatformItem(const PerPlatformItem<Value>& item, const Kept& kept, Table& table) {
    switch (item.kind) {
        case PerPlatformItemKind::Entry:
            table.byPlatform[item.platform] = kept;
            return true;
        case PerPlatformItemKind::Default:
        case PerPlatformItemKind::BuiltInDefault:
            table.byDefault = kept;
            return true;
        case PerPlatformItemKind::BadPlatform:
        case PerPlatformItemKind::BadValue:
            break;
    }
    return false;
}

// Enters one item. A bad item is skipped, with one line on the standard error stream.
template <typename Value>
void enterPerPlatformItem(std::string_view text, const Value& builtIn, PerPlatformTable<Value>& table) {
    const auto item = perPlatformItem<Value>(text);
    const bool isBuiltIn = item.kind == PerPlatformItemKind::BuiltInDefault;
    if (!keepPerPlatformItem(item, isBuiltIn ? builtIn : item.value, table)) reportBadValue();
}

// Hands the text of each item to the sink. Of some keys every ";" separates, of others a run of them counts as one.
template <typename Sink>
void forEachPerPlatformText(std::string_view value, bool keepsEmpty, Sink&& sink) {
    if (keepsEmpty) {
        splitKeepEmpty(value, ';', sink);
    } else {
        splitSqueezed(value, ';', sink);
    }
}

// Reads a list. The entries are replaced. If the text names platforms only, the default of the previous load stays.
template <typename Value>
void readPerPlatformList(std::string_view text, bool keepsEmpty, const Value& builtIn, PerPlatformTable<Value>& table) {
    PerPlatformTable<Value> fresh{{}, table.byDefault};
    forEachPerPlatformText(text, keepsEmpty,
                           [&](std::string_view item) { enterPerPlatformItem(item, builtIn, fresh); });
    table = std::move(fresh);
}

// A list in which a run of ";" counts as one separator.
template <typename Value>
void readPerPlatformList(std::string_view text, const Value& builtIn, PerPlatformTable<Value>& table) {
    readPerPlatformList(text, false, builtIn, table);
}

// The same for a list in which every ";" separates, so that an empty item in the middle also restores the built-in
// default.
template <typename Value>
void readPerPlatformListKeepEmpty(std::string_view text, const Value& builtIn, PerPlatformTable<Value>& table) {
    readPerPlatformList(text, true, builtIn, table);
}

}  // namespace ttservice::internal
