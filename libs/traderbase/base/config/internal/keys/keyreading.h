#pragma once

#include <string>
#include <string_view>

#include <ttplatform/configuration.h>

#include "traderbase/base/config/internal/keys/settingkeys.h"

// How readers get the value of a catalogue key from the settings file.

namespace ttservice::internal {

// The value as written; empty without the key.
inline std::string readText(const utils::Configuration& configuration, const SettingKey& row) {
    return configuration.read(std::string(row.section), std::string(row.key));
}

// The value as a whole number; the row's default if the key is missing or its value is not a whole number.
inline int readInteger(const utils::Configuration& configuration, const SettingKey& row) {
    return configuration.readInt(std::string(row.section), std::string(row.key), valueWhenMissing<int>(row));
}

// A key and its value, from a section whose keys are data. The settings reader returns each key once.
struct SectionRow {
    std::string_view key;
    std::string_view value;
    static constexpr bool repeated = false;
};

// The rows of the settings file as its reader returns them, for code that walks whole sections.
class ConfigurationRows {
public:
    explicit ConfigurationRows(const utils::Configuration& source) : configuration(source) {}

    // Passes every row of the key's section to sink(SectionRow), in file order.
    template <typename Sink>
    void forEach(const SettingKey& row, Sink&& sink) const {
        const std::string section(row.section);
        for (const std::string& key : configuration.getProperties(section)) {
            const std::string value = configuration.read(section, key);
            sink(SectionRow{key, value});
        }
    }

private:
    const utils::Configuration& configuration;
};

// True exactly when the number is 1.
inline bool readFlag(const utils::Configuration& configuration, const SettingKey& row) {
    return readInteger(configuration, row) == 1;
}

}  // namespace ttservice::internal
