#pragma once

#include <map>
#include <string>

#include "traderbase/base/config/configcollector.h"

namespace tests {

// The contents of each table of a store as text, by table name. Does not change the store.
std::map<std::string, std::string> tablesOf(const ttservice::ConfigCollector& store);

// Whether the table of this name is set by the client only, never by a load.
bool isSetAtRunTime(const std::string& table);

// The combination groups and their products; a load adds to them and never replaces them.
std::string combinationsOf(const ttservice::ConfigCollector& store);

// Settings that fill every table; the two versions differ in each of them.
std::string settingsOfVersion(int version);

}  // namespace tests
