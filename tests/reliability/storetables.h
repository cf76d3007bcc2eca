#pragma once

#include <map>
#include <string>

#include "traderbase/base/config/configcollector.h"

namespace tests {

// The content of each table of a store as text, by the table's name. Changes nothing in the store.
std::map<std::string, std::string> tablesOf(const ttservice::ConfigCollector& store);

// Whether a table of this name is set by the client alone and not by a load.
bool isSetAtRunTime(const std::string& table);

// The combination groups and their products, which a load adds to and does not replace.
std::string combinationsOf(const ttservice::ConfigCollector& store);

// Settings that fill every table; the two versions differ in every one of them.
std::string settingsOfVersion(int version);

}  // namespace tests
