#pragma once

#include <standin/settingstext.h>

#include "ttconfig/text/table.h"

namespace ttconfig {

// What a settings file says, one table per topic. The tables do not use the store.

// The sections, each with its number of keys.
Table sectionsOf(const standin::SettingsText& text);

// The switches that list at least one platform, with the platforms.
Table switchesOf(const standin::SettingsText& text);

// The single values: which value counts, and whether the file sets it.
Table singleValuesOf(const standin::SettingsText& text);

// The values by platform: those that the file sets, and the value of all other platforms.
Table platformValuesOf(const standin::SettingsText& text);

// What a load passes over, by line: lines without a meaning, sections and keys that nothing reads, repeated keys, and
// pieces of a switch's value that are not platform IDs.
Table passedOverOf(const standin::SettingsText& text);

}  // namespace ttconfig
