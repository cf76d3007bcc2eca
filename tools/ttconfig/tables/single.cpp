// Single values: reads the keys that hold one value for the whole client.
// Entry points: isSingleValue(), singleValue().
// Covered by tests/tools/ttconfig/reasons/reasonfacts_test.cpp.

#include "ttconfig/tables/single.h"

#include <string>
#include <string_view>

namespace ttconfig {

namespace {

using namespace ttservice::internal;

template <typename Value>
SingleValue numberOf(const SettingKey& key, std::string_view written) {
    const auto number = strictValue<Value>(written);
    return {number.value_or(valueWhenMissing<Value>(key)), number.has_value()};
}

}  // namespace

bool isSingleValue(const SettingKey& key) {
    const bool isSingle = key.grammar == ValueGrammar::Flag || key.grammar == ValueGrammar::Integer ||
                          key.grammar == ValueGrammar::Decimal || key.grammar == ValueGrammar::Text;
    return isSingle && key.key != "*";
}

SingleValue singleValue(const SettingKey& key, const standin::SettingsEntry* entry) {
    const std::string_view written = entry == nullptr ? std::string_view() : entry->value;
    switch (key.grammar) {
        case ValueGrammar::Flag: {
            const SingleValue number = numberOf<int>(key, written);
            return {number.answer == 1, number.isGiven};
        }
        case ValueGrammar::Integer:
            return numberOf<int>(key, written);
        case ValueGrammar::Decimal:
            return numberOf<double>(key, written);
        default:
            return {std::string(written), entry != nullptr};
    }
}

}  // namespace ttconfig
