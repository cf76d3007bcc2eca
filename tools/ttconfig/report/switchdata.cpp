// The matrix's data: answers for which platforms each switch is on.
// Doors: writeSwitchData().
// Owns: nothing.
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include <algorithm>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/report/datawriters.h"
#include "ttconfig/tables/creditfacts.h"
#include "ttconfig/tables/platformvaluefacts.h"
#include "ttconfig/tables/switchfacts.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsText;

using Platforms = std::vector<int>;

void sortOnce(Platforms& platforms) {
    std::sort(platforms.begin(), platforms.end());
    platforms.erase(std::unique(platforms.begin(), platforms.end()), platforms.end());
}

template <typename Map>
void addNames(const Map& byPlatform, Platforms& platforms) {
    for (const auto& [platform, item] : byPlatform)
        platforms.push_back(platform);
}

void addNamesOf(const SettingsText& text, const SettingKey& key, Platforms& platforms) {
    switch (key.grammar) {
        case ValueGrammar::PerPlatformFlag:
        case ValueGrammar::PerPlatformFlagKeepEmpty:
            return addNames(platformValues<bool>(text, key).byPlatform, platforms);
        case ValueGrammar::PerPlatformInteger:
            return addNames(platformValues<int>(text, key).byPlatform, platforms);
        case ValueGrammar::PerPlatformDecimalKeepEmpty:
            return addNames(platformValues<double>(text, key).byPlatform, platforms);
        default:
            return;
    }
}

// Every platform that a switch, a value by platform or a credit list names.
void addPlatforms(const SettingsText& text, Platforms& platforms) {
    for (const PlatformSwitch& row : kPlatformSwitches) {
        const Platforms listed = switchList(text, row.key).platforms();
        platforms.insert(platforms.end(), listed.begin(), listed.end());
        sortOnce(platforms);
    }
    for (const SettingKey& key : kSettingKeys)
        addNamesOf(text, key, platforms);
    addNames(concentrationFacts(text).byPlatform, platforms);
    addNames(collateralSaleFacts(text).byPlatform, platforms);
    sortOnce(platforms);
}

// The positions of the listed platforms among those shown.
void writeListed(JsonStream& json, const SwitchList& list, const Platforms& shown) {
    Platforms listed = list.platforms();
    sortOnce(listed);
    json.beginArray();
    for (const int platform : listed) {
        const auto found = std::lower_bound(shown.begin(), shown.end(), platform);
        if (found != shown.end() && *found == platform) json.integer(found - shown.begin());
    }
    json.endArray();
}

void writeSwitch(JsonStream& json, const PlatformSwitch& row, const Platforms& shown, ReportState& state) {
    json.beginObject();
    json.name("predicate");
    json.text(row.predicate);
    json.name("key");
    json.text(row.key);
    json.name("inverted");
    json.flag(row.sense == SwitchSense::NotListed);
    json.name("meaning");
    json.text(row.meaning);
    const SwitchList list = switchList(state.text(), row.key);
    json.name("line");
    json.integer(list.entry == nullptr ? 0 : state.lines.mark(list.entry->line));
    json.name("listed");
    writeListed(json, list, shown);
    if (state.oldText() != nullptr) {
        const SwitchList oldList = switchList(*state.oldText(), row.key);
        json.name("oldLine");
        json.integer(oldList.entry == nullptr ? 0 : state.oldLines.mark(oldList.entry->line));
        json.name("oldListed");
        writeListed(json, oldList, shown);
    }
    json.endObject();
}

}  // namespace

void writeSwitchData(JsonStream& json, ReportState& state) {
    Platforms platforms;
    addPlatforms(state.text(), platforms);
    if (state.oldText() != nullptr) addPlatforms(*state.oldText(), platforms);
    const std::size_t named = platforms.size();
    platforms.resize(std::min(named, state.bounds.platforms));
    json.name("platformsLeftOut");
    json.integer(static_cast<std::int64_t>(named - platforms.size()));
    json.name("platforms");
    json.beginArray();
    for (const int platform : platforms)
        json.integer(platform);
    json.endArray();
    json.name("switches");
    json.beginArray();
    for (const PlatformSwitch& row : kPlatformSwitches)
        writeSwitch(json, row, platforms, state);
    json.endArray();
}

}  // namespace ttconfig
