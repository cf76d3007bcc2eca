#pragma once

#include <standin/settingstext.h>

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ttconfig/tables/numberrows.h"

namespace ttconfig {

// A settings text and the tables made from it. Each table is built on first use and then kept. Not thread-safe.
class SettingsFacts {
public:
    SettingsFacts(const standin::SettingsText& settingsText, std::map<std::string, bool> localOverrides,
                  std::string path)
        : overrides(std::move(localOverrides)), settingsPath(std::move(path)), source(settingsText) {}

    const standin::SettingsText& text() const { return source; }

    // The rows of a section in which keys are names and values are numbers.
    const NumberRows& numberRows(const ttservice::internal::SettingKey& topic) const {
        return numbers.try_emplace(&topic, source, topic).first->second;
    }

    // The later entries of a repeated key, in file order.
    std::vector<const standin::SettingsEntry*> repeatsOf(std::string_view section, std::string_view key) const;

    const std::map<std::string, bool> overrides;
    const std::string settingsPath;

private:
    // All later entries of repeated keys, by section.
    using Repeats = std::map<std::string_view, std::vector<const standin::SettingsEntry*>>;
    static Repeats repeatsIn(const standin::SettingsText& text);

    const standin::SettingsText& source;
    mutable std::map<const ttservice::internal::SettingKey*, NumberRows> numbers;
    mutable std::optional<Repeats> repeats;
};

}  // namespace ttconfig
