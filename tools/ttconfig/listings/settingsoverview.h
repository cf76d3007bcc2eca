#pragma once

#include <standin/settingstext.h>

#include "ttconfig/text/table.h"

namespace ttconfig {

// What a settings file says, a table a topic. Nothing is asked from the store.

// The sections with the numbers of their keys.
Table sectionsOf(const standin::SettingsText& text);

// The switches that list somebody, with the platforms.
Table switchesOf(const standin::SettingsText& text);

// The single values: what counts for each, and whether the file says it.
Table singleValuesOf(const standin::SettingsText& text);

// The values by platform: those given, and the one of all other platforms.
Table platformValuesOf(const standin::SettingsText& text);

// What a load passes over, by line: lines that are none, sections and keys that nobody asks for, repeated keys, and
// pieces of a switch's value that are no platform ID.
Table passedOverOf(const standin::SettingsText& text);

}  // namespace ttconfig
