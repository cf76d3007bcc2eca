// Number rows: finds the row of a section that gives a name its number.
// Entry points: NumberRows, numberOf().
// Covered by tests/tools/ttconfig/reasons/reasonfacts_test.cpp.

#include "ttconfig/tables/numberrows.h"

#include <standin/numbertext.h>

#include <algorithm>
#include <locale>

namespace ttconfig {

using standin::SettingsEntry;

std::optional<double> numberOf(const SettingsEntry& row) {
    double number = 0.0;
    return standin::readDecimal(row.value, number) ? std::optional<double>(number) : std::nullopt;
}

LessNumberRow::LessNumberRow() {
    const std::locale locale;
    for (std::size_t i = 0; i < upper.size(); ++i)
        upper[i] = std::toupper(static_cast<char>(static_cast<unsigned char>(i)), locale);
}

char LessNumberRow::letterOf(const NumberRow& row, std::size_t at) const {
    const char written = row.entry->key[at];
    return row.isUpperCase ? upper[static_cast<unsigned char>(written)] : written;
}

bool LessNumberRow::operator()(const NumberRow& left, const NumberRow& right) const {
    const std::string_view one = left.entry->key;
    const std::string_view other = right.entry->key;
    if (!left.isUpperCase && !right.isUpperCase) return one < other;
    const std::size_t shared = std::min(one.size(), other.size());
    for (std::size_t i = 0; i < shared; ++i) {
        const auto here = static_cast<unsigned char>(letterOf(left, i));
        const auto there = static_cast<unsigned char>(letterOf(right, i));
        if (here != there) return here < there;
    }
    return one.size() < other.size();
}

std::string LessNumberRow::nameOf(const NumberRow& row) const {
    std::string name(row.entry->key);
    for (std::size_t i = 0; i < name.size(); ++i)
        name[i] = letterOf(row, i);
    return name;
}

bool LessNumberRow::hasOtherUpperCase(std::string_view key) const {
    return std::any_of(key.begin(), key.end(),
                       [this](char letter) { return upper[static_cast<unsigned char>(letter)] != letter; });
}

NumberRows::NumberRows(const standin::SettingsText& text, const ttservice::internal::SettingKey& topic) {
    forEachNumberRow(text, topic, [this](const SettingsEntry& entry) {
        rows.push_back({&entry, false});
        if (less.hasOtherUpperCase(entry.key)) rows.push_back({&entry, true});
    });
    std::stable_sort(rows.begin(), rows.end(), less);
    const auto isSame = [this](const NumberRow& left, const NumberRow& right) { return !less(left, right); };
    rows.erase(std::unique(rows.begin(), rows.end(), isSame), rows.end());
}

const NumberRow* NumberRows::find(std::string_view name) const {
    SettingsEntry wanted;
    wanted.key = name;
    const auto found = std::lower_bound(rows.begin(), rows.end(), NumberRow{&wanted, false}, less);
    return found != rows.end() && !less(NumberRow{&wanted, false}, *found) ? &*found : nullptr;
}

}  // namespace ttconfig
