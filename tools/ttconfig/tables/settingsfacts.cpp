// Settings facts: builds tables from a settings text when they are first needed.
// Entry points: SettingsFacts.
// Owns: the tables built so far.
// Covered by tests/tools/ttconfig/reasons/reasonfacts_test.cpp.

#include "ttconfig/tables/settingsfacts.h"

#include <algorithm>
#include <iterator>

namespace ttconfig {

using standin::SettingsEntry;

SettingsFacts::Repeats SettingsFacts::repeatsIn(const standin::SettingsText& text) {
    Repeats all;
    for (const standin::SettingsSection& section : text.sections()) {
        for (const SettingsEntry& entry : section.entries) {
            if (entry.repeated) all[section.name].push_back(&entry);
        }
    }
    return all;
}

std::vector<const SettingsEntry*> SettingsFacts::repeatsOf(std::string_view section, std::string_view key) const {
    std::vector<const SettingsEntry*> found;
    if (!repeats) repeats = repeatsIn(source);
    const auto place = repeats->find(section);
    if (place == repeats->end()) return found;
    std::copy_if(place->second.begin(), place->second.end(), std::back_inserter(found),
                 [key](const SettingsEntry* entry) { return entry->key == key; });
    return found;
}

}  // namespace ttconfig
