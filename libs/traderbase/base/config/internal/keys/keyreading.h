#pragma once

#include <string>

#include <ttplatform/configuration.h>

#include "traderbase/base/config/internal/keys/settingkeys.h"

// How readers ask the settings file for a key of the catalogue.

namespace ttservice::internal {

// The value as it stands; empty without the key.
inline std::string readText(const utils::Configuration& configuration, const SettingKey& row) {
    return configuration.read(std::string(row.section), std::string(row.key));
}

// The value as a whole number; the row's own value when the key is missing or its value is no such number.
inline int readInteger(const utils::Configuration& configuration, const SettingKey& row) {
    return configuration.readInt(std::string(row.section), std::string(row.key), valueWhenMissing<int>(row));
}

// Yes exactly when the number is 1.
inline bool readFlag(const utils::Configuration& configuration, const SettingKey& row) {
    return readInteger(configuration, row) == 1;
}

}  // namespace ttservice::internal
