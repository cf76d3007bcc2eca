#pragma once

#include <standin/platformdata.h>

#include <boost/shared_ptr.hpp>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/tempfile.h"
#include "traderbase/base/config/configcollector.h"
#include "ttconfig/calls/records.h"

// Asks a store every question whose answer settings can change.

namespace tests {

using PlatformKinds = std::vector<std::shared_ptr<const standin::PlatformData>>;

constexpr int kNobody = 987654;  // a platform that is in no settings

// A new store that has loaded the settings, and that instance() returns from now on.
boost::shared_ptr<ttservice::ConfigCollector> loadedStore(const TempFolder& folder, const std::string& settings);

// Platform data that give every instrument the same kind: one for each combination of types that some rule knows.
PlatformKinds platformsOfKinds();

// The answers to each question, such as "SH-600000: getOrderLimit", for all kinds of instruments and prices.
using Answers = std::map<std::string, std::vector<std::string>>;

Answers allAnswers(ttservice::ConfigCollector& store, const PlatformKinds& platformKinds);

// An answer as text; numbers with all their digits, including those that JSON cannot write.
std::string shown(const ttconfig::Answer& answer);

}  // namespace tests
