// Calls: the settings file reader. Each session has one scratch reader.
// Entry points: addReaderCalls().
// Owns: the scratch reader, which Configuration.parse replaces.
// Covered by tests/tools/ttconfig/sessions/reader.jsonl.

#include <ttplatform/configuration.h>

#include "ttconfig/calls/binding.h"

namespace ttconfig {

void addReaderCalls(CallTable& table) {
    using utils::Configuration;
    const auto reader = [](CallState& state) { return &state.part<Configuration>(); };
    table.add("Configuration.parse", objectCall(&Configuration::parse, reader));
    table.add("Configuration.getProperties", objectCall(&Configuration::getProperties, reader));
    table.add("Configuration.read", objectCall(&Configuration::read, reader));
    table.add("Configuration.readInt", objectCall(&Configuration::readInt, reader));
    table.add("Configuration.readDouble", objectCall(&Configuration::readDouble, reader));
}

}  // namespace ttconfig
