// Platforms: shows how a platform differs from one that the settings do not name.
// Entry points: runPlatform().
// Covered by tests/tools/ttconfig/expectations/answers_test.cpp.

#include "ttconfig/listings/platforms.h"

#include <utility>

#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/invocation/colouring.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/settings/settingsfile.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/colour.h"
#include "ttconfig/text/placecolumn.h"
#include "ttconfig/text/table.h"

namespace ttconfig {

namespace {

using ttservice::internal::kPlatformSwitchCount;
using ttservice::internal::kPlatformSwitches;

// What is special about one platform, one table per topic. JSON has the line and column of a place as separate members;
// text shows both in one column.
struct SpecialAnswers {
    Table switches{"switches", "Switches", {"question", "answer", "key", "line", "column", "meaning"}, {}};
    Table values{"values",
                 "Values, and those of the platforms that are not named",
                 {"question", "answer", "others", "line", "column"},
                 {}};
    Table lists{"lists", "Lists", {"question", "answer", "line", "column"}, {}};

    bool areNone() const { return switches.rows.empty() && values.rows.empty() && lists.rows.empty(); }
};

void addSwitch(const SwitchChange& found, Table& table) {
    const bool isKnown = found.number < kPlatformSwitchCount;
    const Change change = asChange(found);
    table.rows.push_back({change.question, change.after, std::string(found.key), change.newPlace->line,
                          change.newPlace->column,
                          isKnown ? std::string(kPlatformSwitches[found.number].meaning) : std::string()});
}

SpecialAnswers specialAnswers(const standin::SettingsText& text, int platform) {
    // Compared with an empty text, every switch and list that names the platform is a change.
    static const standin::SettingsText kNothing;
    const TextPair texts{kNothing, text};
    SpecialAnswers special;
    for (const SwitchChange& found : switchChanges(texts, {platform}))
        addSwitch(found, special.switches);
    tellSpecialValues(text, platform, [&special](const Change& change) {
        special.values.rows.push_back(
            {change.question, change.after, change.before, change.newPlace->line, change.newPlace->column});
    });
    tellPlatformListChanges(texts, {platform}, [&special](const Change& change) {
        special.lists.rows.push_back({change.question, change.after, change.newPlace->line, change.newPlace->column});
    });
    return special;
}

std::string specialText(int platform, const SpecialAnswers& special, const std::string& file, const Colours& colours) {
    std::string text = colours(Tint::Heading, "platform " + std::to_string(platform)) + '\n';
    if (special.areNone()) return text + "\nNothing special: the settings do not name it, or say nothing else of it.\n";
    for (const Table* table : {&special.switches, &special.values, &special.lists}) {
        if (!table->rows.empty()) text += '\n' + tableText(withPlaceColumn(*table, file));
    }
    return text;
}

Answer specialJson(int platform, const SpecialAnswers& special) {
    Answer json = {{"platform", platform}};
    for (const Table* table : {&special.switches, &special.values, &special.lists})
        json[table->name] = tableJson(*table);
    return json;
}

}  // namespace

int runPlatform(const CommandLine& commandLine, Output& output) {
    SharedOptions directories;
    directories.directories = commandLine.shared.directories;
    carryOut(directories);
    const std::string& file = *commandLine.shared.settings;
    requireUsableSettings(file);
    standin::SettingsText text;
    standin::SettingsText::load(file, text);
    const Colours colours = coloursFor(commandLine, output);
    std::string shown;
    Answer all = Answer::array();
    for (const std::string& word : commandLine.words) {
        const auto platform = ttservice::internal::strictInt(word);
        if (!platform) throw Fault(kExitUsage, word + " is no platform ID");
        const SpecialAnswers special = specialAnswers(text, *platform);
        all.push_back(specialJson(*platform, special));
        shown += (shown.empty() ? "" : "\n") + specialText(*platform, special, file, colours);
    }
    const Answer json = {{"settings", file}, {"platforms", all}};
    output.write(commandLine.format == Format::Json ? answerJson(json) + '\n' : shown);
    return kExitDone;
}

}  // namespace ttconfig
