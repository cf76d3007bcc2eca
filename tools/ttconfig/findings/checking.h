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

// Hands everything that the rules have to say about a settings text to the sink, in file order, each finding with the
// severity of its rule. With platform data (it may be null) rows for instruments that it does not know are noted too.
// Nothing is loaded, installed or printed. However many findings there are, memory goes by the text alone.
// Of each rule so many findings are handed on, the first ones; answered is how many more there are of each, by the
// numbers of the rules. A file of mistakes and nothing else is checked several times faster with a bound.
std::vector<std::size_t> checkSettings(const standin::SettingsText& text, const standin::PlatformData* platform,
                                       const FindingSink& sink, std::size_t mostOfARule = kEveryFinding);

// The same, without platform data, as a list.
std::vector<Finding> checkSettings(const standin::SettingsText& text);

}  // namespace ttconfig
