#pragma once

#include "standin/settingstext.h"
#include "traderbase/base/config/configcollector.h"

namespace fuzz {

// Puts every question to a new store that has loaded this text and nothing before it, about what the text names and
// about what it does not. Ends the program when an answer is none that may be.
void askEverything(ttservice::ConfigCollector& store, const standin::SettingsText& text);

}  // namespace fuzz
