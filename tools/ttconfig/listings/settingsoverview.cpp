// The settings overview: tells what a settings file says, topic by topic.
// Entry points: sectionsOf(), switchesOf(), singleValuesOf(), platformValuesOf(), passedOverOf().
// Covered by tests/tools/ttconfig/listings/summary_test.cpp.

#include "ttconfig/listings/settingsoverview.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/tables/platformlist.h"
#include "ttconfig/tables/platformvalues.h"
#include "ttconfig/tables/single.h"
#include "ttconfig/text/nearestname.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::IgnoredReason;
using standin::SettingsEntry;
using standin::SettingsSection;
using standin::SettingsText;

constexpr std::string_view kMainSection = "setting";

std::string keyLabel(const SettingKey& row) {
    return row.section == kMainSection ? std::string(row.key)
                                       : "[" + std::string(row.section) + "] " + std::string(row.key);
}

// --- what is passed over

std::string_view reasonText(IgnoredReason reason) {
    switch (reason) {
        case IgnoredReason::kNoEqualSign:
            return "neither a section nor key=value";
        case IgnoredReason::kNoKey:
            return "nothing in front of the =";
        case IgnoredReason::kOpenHeader:
            return "no ] behind the [";
        case IgnoredReason::kBehindHeader:
            return "text behind a section's ]";
    }
    return "";
}

void pass(std::size_t line, std::string_view text, const std::string& reason, Table& table) {
    table.rows.push_back({line, cutText(text, 40), reason});
}

std::vector<std::string_view> knownSections() {
    std::vector<std::string_view> names{kMainSection};
    for (const SettingKey& row : kSettingKeys)
        names.push_back(row.section);
    return names;
}

std::vector<std::string_view> knownKeys(std::string_view section) {
    std::vector<std::string_view> names;
    for (const SettingKey& row : kSettingKeys) {
        if (row.section == section) names.push_back(row.key);
    }
    if (section != kMainSection) return names;
    for (const PlatformSwitch& row : kPlatformSwitches)
        names.push_back(row.key);
    return names;
}

bool holds(const std::vector<std::string_view>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

void passKeys(const SettingsSection& section, Table& table) {
    const std::vector<std::string_view> keys = knownKeys(section.name);
    const bool anyKey = holds(keys, "*");
    for (const SettingsEntry& entry : section.entries) {
        if (entry.repeated) {
            pass(entry.line, entry.key, "written before; the first one counts", table);
        } else if (!anyKey && !holds(keys, entry.key)) {
            pass(entry.line, entry.key, "unknown key" + didYouMean(entry.key, keys), table);
        }
    }
}

void passSwitchPieces(const SettingsText& text, Table& table) {
    for (const PlatformSwitch& row : kPlatformSwitches) {
        const SettingsEntry* entry = listEntry(text, row.key);
        if (entry == nullptr) continue;
        forEachListed(*entry, [&](const ListedPlatform& listed) {
            if (!listed.platform) pass(entry->line, entry->key, shownText(listed.piece) + " is no platform ID", table);
        });
    }
}

}  // namespace

Table sectionsOf(const SettingsText& text) {
    Table table{"sections", "Sections, and their numbers of keys", {"section", "keys"}, {}};
    for (const SettingsSection& section : text.sections()) {
        const auto repeated = std::count_if(section.entries.begin(), section.entries.end(),
                                            [](const SettingsEntry& entry) { return entry.repeated; });
        const auto keys = section.entries.size() - static_cast<std::size_t>(repeated);
        table.rows.push_back({std::string(section.name), keys});
    }
    return table;
}

Table switchesOf(const SettingsText& text) {
    Table table{"switches", "", {"key", "platforms"}, {}};
    for (const PlatformSwitch& row : kPlatformSwitches) {
        const Answer platforms = platformsOf(listEntry(text, row.key));
        if (!platforms.empty()) table.rows.push_back({std::string(row.key), platforms});
    }
    table.title = "Switches in use, " + std::to_string(table.rows.size()) + " of " +
                  std::to_string(std::size(kPlatformSwitches)) + ", and the platforms they list";
    return table;
}

Table singleValuesOf(const SettingsText& text) {
    Table table{"values", "Single values", {"key", "value", "source"}, {}};
    for (const SettingKey& row : kSettingKeys) {
        if (!isSingleValue(row) || row.feeds.empty()) continue;
        const SingleValue value = singleValue(row, text.findEntry(row.section, row.key));
        table.rows.push_back({keyLabel(row), value.answer, value.isGiven ? "from the file" : "default"});
    }
    return table;
}

Table platformValuesOf(const SettingsText& text) {
    Table table{
        "platformValues", "Values by platform: all others, then those named", {"key", "others", "platforms"}, {}};
    for (const SettingKey& row : kSettingKeys) {
        if (!isPerPlatform(row.grammar) || row.feeds.empty()) continue;
        const PlatformValueTable values = platformValues(text, row);
        Answer platforms = Answer::object();
        for (const auto& [platform, item] : values.byPlatform)
            platforms[std::to_string(platform)] = numberAnswer(row, item.value);
        table.rows.push_back({keyLabel(row), numberAnswer(row, values.defaultNumber()), platforms});
    }
    return table;
}

Table passedOverOf(const SettingsText& text) {
    Table table{"passedOver", "Passed over", {"line", "text", "reason"}, {}};
    for (const auto& line : text.ignoredLines())
        pass(line.line, line.text, std::string(reasonText(line.reason)), table);
    for (const SettingsEntry& entry : text.entriesOutside()) {
        pass(entry.line, entry.key, "stands in front of the first section", table);
    }
    const std::vector<std::string_view> sections = knownSections();
    for (const SettingsSection& section : text.sections()) {
        if (holds(sections, section.name)) {
            passKeys(section, table);
        } else {
            pass(section.headers.front().line, section.name, "unknown section" + didYouMean(section.name, sections),
                 table);
        }
    }
    passSwitchPieces(text, table);
    std::stable_sort(table.rows.begin(), table.rows.end(),
                     [](const auto& left, const auto& right) { return left[0] < right[0]; });
    return table;
}

}  // namespace ttconfig
