// The platform switches: lists what can be switched by platform.
// Entry points: runSwitches().
// Owns: the reference page of the switches.
// Covered by tests/tools/ttconfig/listings/listings_test.cpp.

#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/listings/listings.h"
#include "ttconfig/settings/settingsfile.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/tables/platformlist.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/placecolumn.h"
#include "ttconfig/text/table.h"

namespace ttconfig {

namespace {

using ttservice::internal::kPlatformSwitches;
using ttservice::internal::PlatformSwitch;
using ttservice::internal::SwitchSense;

constexpr const char* kSwitchesPage =
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

// The switches with their answers for the platform, and the place in the file that decides each: the piece that lists
// the platform, or the value that does not.
Table switchTableFor(int platform, const standin::SettingsText& text) {
    Table table{"switches", "", {"key", "predicate", "answer", "line", "column", "true when", "meaning"}, {}};
    for (const PlatformSwitch& row : kPlatformSwitches) {
        const standin::SettingsEntry* entry = listEntry(text, row.key);
        const auto listed = findListed(entry, platform);
        const bool whenListed = row.sense == SwitchSense::Listed;
        std::optional<Place> place;
        if (entry != nullptr) place = listed ? listed->place : valuePlace(*entry);
        table.rows.push_back({std::string(row.key), std::string(row.predicate), listed.has_value() == whenListed,
                              place ? Answer(place->line) : Answer(), place ? Answer(place->column) : Answer(),
                              whenListed ? "listed" : "not listed", std::string(row.meaning)});
    }
    return table;
}

Table switchTable(const CommandLine& commandLine) {
    if (!commandLine.platformId) return switchTable();
    const std::string& file = commandLine.shared.settings.value();
    requireUsableSettings(file);
    standin::SettingsText text;
    standin::SettingsText::load(file, text);
    return switchTableFor(*commandLine.platformId, text);
}

}  // namespace

void runSwitches(const CommandLine& commandLine, Output& output) {
    SharedOptions directories;
    directories.directories = commandLine.shared.directories;
    carryOut(directories);
    const Table table = switchTable(commandLine);
    switch (commandLine.format) {
        case Format::Text:
            output.write(tableText(commandLine.platformId ? withPlaceColumn(table, {}) : table));
            break;
        case Format::Sarif:  // not offered here
        case Format::Json:
            output.write(answerJson(tableJson(table)) + '\n');
            break;
        case Format::Markdown:
            output.write(commandLine.platformId ? tableMarkdown(withPlaceColumn(table, {}), 2)
                                                : kSwitchesPage + tableMarkdown(table, 2));
            break;
    }
}

}  // namespace ttconfig
