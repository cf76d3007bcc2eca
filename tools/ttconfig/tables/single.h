#pragma once

#include <standin/settingstext.h>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/text/answer.h"

namespace ttconfig {

// Whether the key holds one value for the whole client: a flag, a number or a text.
bool isSingleValue(const ttservice::internal::SettingKey& key);

// What counts for such a key after a load.
struct SingleValue {
    Answer answer;
    bool isGiven = false;  // whether the settings say it
};

// Without an entry, which is null then, of a key that is missing.
SingleValue singleValue(const ttservice::internal::SettingKey& key, const standin::SettingsEntry* entry);

}  // namespace ttconfig
