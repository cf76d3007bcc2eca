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

// Every question that settings have a say in, asked of a store.

namespace tests {

using PlatformKinds = std::vector<std::shared_ptr<const standin::PlatformData>>;

constexpr int kNobody = 987654;  // a platform that no settings name

// A store of its own that has loaded the settings, and that instance() answers from now on.
boost::shared_ptr<ttservice::ConfigCollector> loadedStore(const TempFolder& folder, const std::string& settings);

// Platform data after which every instrument is of one kind: one for each combination of types that some rule knows.
PlatformKinds platformsOfKinds();

// By question, such as "SH-600000: getOrderLimit", the answers that it has for the kinds of instruments and prices.
using Answers = std::map<std::string, std::vector<std::string>>;

Answers allAnswers(ttservice::ConfigCollector& store, const PlatformKinds& platformKinds);

// An answer as one text; numbers to the last digit, those that JSON cannot write included.
std::string shown(const ttconfig::Answer& answer);

}  // namespace tests
