// Switch data: writes for which platforms each switch is on.
// Entry points: writeSwitchData().
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include <algorithm>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/report/datawriters.h"
#include "ttconfig/tables/creditlists.h"
#include "ttconfig/tables/platformlist.h"
#include "ttconfig/tables/platformvalues.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
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

// Every platform that a switch, a value by platform or a credit list names.
void addPlatforms(const SettingsText& text, Platforms& platforms) {
    for (const PlatformSwitch& row : kPlatformSwitches) {
        const Platforms listed = platformsOf(listEntry(text, row.key));
        platforms.insert(platforms.end(), listed.begin(), listed.end());
        sortOnce(platforms);
    }
    for (const SettingKey& key : kSettingKeys) {
        if (isPerPlatform(key.grammar)) addNames(platformValues(text, key).byPlatform, platforms);
    }
    for (const SettingKey& key : {keys::concentrationRatio, keys::collateralSaleRepay})
        addNames(creditTable(text, key).byPlatform, platforms);
    sortOnce(platforms);
}

// Writes the positions of the listed platforms among those shown.
void writeListed(JsonStream& json, const SettingsEntry* entry, const Platforms& shown) {
    Platforms listed = platformsOf(entry);
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
    const SettingsEntry* entry = listEntry(state.text(), row.key);
    json.name("line");
    json.integer(entry == nullptr ? 0 : state.lines.mark(entry->line));
    json.name("listed");
    writeListed(json, entry, shown);
    if (state.oldText() != nullptr) {
        const SettingsEntry* oldEntry = listEntry(*state.oldText(), row.key);
        json.name("oldLine");
        json.integer(oldEntry == nullptr ? 0 : state.oldLines.mark(oldEntry->line));
        json.name("oldListed");
        writeListed(json, oldEntry, shown);
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
