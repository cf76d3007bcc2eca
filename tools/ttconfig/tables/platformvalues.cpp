// Per-platform values: finds the item that counts for each platform, and what each operation answers from it.
// Covered by tests/tools/ttconfig/reasons/reasonfacts_test.cpp.

#include "ttconfig/tables/platformvalues.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

template <typename Value>
PerPlatformItem<double> itemOf(std::string_view text) {
    const auto item = perPlatformItem<Value>(text);
    return {item.kind, item.text, item.platform, static_cast<double>(item.value)};
}

PlatformQuestion::Kind kindOf(const SettingKey& key, std::string_view operation) {
    if (operation.substr(0, 3) == "get") return PlatformQuestion::Kind::Value;
    if (key.grammar == ValueGrammar::PerPlatformInteger) return PlatformQuestion::Kind::IsNotZero;
    return key.grammar == ValueGrammar::PerPlatformDecimalKeepEmpty ? PlatformQuestion::Kind::IsNamed
                                                                    : PlatformQuestion::Kind::Value;
}

}  // namespace

PerPlatformItem<double> platformItem(const SettingKey& key, std::string_view text) {
    switch (key.grammar) {
        case ValueGrammar::PerPlatformFlag:
        case ValueGrammar::PerPlatformFlagKeepEmpty:
            return itemOf<bool>(text);
        case ValueGrammar::PerPlatformInteger:
            return itemOf<int>(text);
        default:
            return itemOf<double>(text);
    }
}

Answer numberAnswer(const SettingKey& key, double number) {
    switch (key.grammar) {
        case ValueGrammar::PerPlatformFlag:
        case ValueGrammar::PerPlatformFlagKeepEmpty:
            return number != 0;
        case ValueGrammar::PerPlatformInteger:
            return static_cast<int>(number);
        default:
            return number;
    }
}

PlatformQuestion::PlatformQuestion(const SettingKey& settingKey, std::string_view name)
    : key(&settingKey), operation(name), kind(kindOf(settingKey, name)) {}

const PlatformItem* PlatformValueTable::find(int platform) const {
    const auto found = byPlatform.find(platform);
    return found == byPlatform.end() ? nullptr : &found->second;
}

// If the value only names platforms, the default is that of a new store, which is 0.
double PlatformValueTable::defaultNumber() const {
    if (entry != nullptr && !byDefault) return 0;
    return entry == nullptr || byDefault->isBuiltInDefault() ? valueWhenMissing<double>(*key) : byDefault->value;
}

Answer PlatformValueTable::answer(const PlatformQuestion& asked, std::optional<int> platform) const {
    const PlatformItem* item = platform ? find(*platform) : nullptr;
    const double number = item == nullptr ? defaultNumber() : item->value;
    switch (asked.kind) {
        case PlatformQuestion::Kind::IsNamed:
            return item != nullptr;
        case PlatformQuestion::Kind::IsNotZero:
            return number != 0;
        case PlatformQuestion::Kind::Value:
            break;
    }
    return numberAnswer(*key, number);
}

std::optional<Place> PlatformValueTable::place(std::optional<int> platform) const {
    const PlatformItem* item = platform ? find(*platform) : nullptr;
    if (item != nullptr) return item->place;
    if (byDefault) return byDefault->place;
    return entry == nullptr ? std::optional<Place>() : valuePlace(*entry);
}

PlatformValueTable platformValues(const standin::SettingsText& text, const SettingKey& key, std::optional<int> only) {
    PlatformValueTable table{&key, text.findEntry(key.section, key.key), {}, {}};
    if (table.entry == nullptr) return table;
    forEachPlatformItem(*table.entry, key, [&](const PlatformItem& item) {
        const bool isOfAnother = only && item.kind == PerPlatformItemKind::Entry && item.platform != *only;
        if (!isOfAnother) keepPerPlatformItem(item, item, table);
    });
    return table;
}

}  // namespace ttconfig
