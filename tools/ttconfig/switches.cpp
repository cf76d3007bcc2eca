// The platform switches: lists what can be switched by platform.
// Doors: runSwitches().
// Owns: the reference page of the switches.
// Covered by tests/tools/ttconfig/listings_test.cpp.

#include "traderbase/base/config/internal/platformswitchtable.h"
#include "ttconfig/listings.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/table.h"

namespace ttconfig {

namespace {

using ttservice::internal::kPlatformSwitches;
using ttservice::internal::PlatformSwitch;
using ttservice::internal::SwitchSense;

constexpr const char* kPage =
    "# Platform switches\n\n"
    "Each is a key of section `[setting]` whose value lists platform IDs, separated by `,`: `needmaxamount=12,15`. "
    "The\n"
    "predicate is asked with a platform ID. It is true when the ID is *listed*, for two switches when it is *not\n"
    "listed*; a key that is missing lists nobody. Written by `ttconfig switches --format markdown`.\n\n";

Table switchTable() {
    Table table{"switches", "", {"key", "predicate", "true when", "meaning"}, {}};
    for (const PlatformSwitch& row : kPlatformSwitches) {
        const char* sense = row.sense == SwitchSense::Listed ? "listed" : "not listed";
        table.rows.push_back({std::string(row.key), std::string(row.predicate), sense, std::string(row.meaning)});
    }
    return table;
}

}  // namespace

void runSwitches(const CommandLine& commandLine, Output& output) {
    const Table table = switchTable();
    switch (commandLine.format) {
        case Format::Text:
            output.write(tableText(table));
            break;
        case Format::Json:
            output.write(answerJson(tableJson(table)) + '\n');
            break;
        case Format::Markdown:
            output.write(kPage + tableMarkdown(table, 2));
            break;
    }
}

}  // namespace ttconfig
