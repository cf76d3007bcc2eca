#pragma once

#include <standin/platformdata.h>
#include <standin/settingstext.h>

#include <cstddef>
#include <functional>
#include <vector>

#include "ttconfig/findings/finding.h"

namespace ttconfig {

using FindingSink = std::function<void(Finding&& finding)>;

inline constexpr std::size_t kEveryFinding = static_cast<std::size_t>(-1);

// Passes every finding about a settings text to the sink, in file order, each with its rule's severity. With platform
// data, which may be null, rows for instruments that it does not know are noted too. Loads, installs and prints
// nothing. Memory depends on the text alone, not on the number of findings.
//
// Passes on at most the first mostOfARule findings of each rule. The result counts the findings beyond that, indexed by
// the number of the rule. A bound makes it several times faster to check a file full of mistakes.
std::vector<std::size_t> checkSettings(const standin::SettingsText& text, const standin::PlatformData* platform,
                                       const FindingSink& sink, std::size_t mostOfARule = kEveryFinding);

// The same without platform data, as a list.
std::vector<Finding> checkSettings(const standin::SettingsText& text);

}  // namespace ttconfig
