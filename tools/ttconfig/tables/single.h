#pragma once

#include <standin/settingstext.h>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/text/answer.h"

namespace ttconfig {

// Whether the key holds one value for the whole client: a flag, a number or a text.
bool isSingleValue(const ttservice::internal::SettingKey& key);

// The value of such a key after a load.
struct SingleValue {
    Answer answer;
    bool isGiven = false;  // whether the settings give it
};

// Pass a null entry if the key is missing.
SingleValue singleValue(const ttservice::internal::SettingKey& key, const standin::SettingsEntry* entry);

}  // namespace ttconfig
