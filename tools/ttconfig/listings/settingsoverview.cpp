// The settings overview: answers what a settings file says, topic by topic.
// Doors: sectionsOf(), switchesOf(), singleValuesOf(), platformValuesOf(), passedOverOf().
// Owns: nothing.
// Covered by tests/tools/ttconfig/summary_test.cpp.

#include "ttconfig/listings/settingsoverview.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"
#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
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

std::string_view valueOf(const SettingsText& text, const SettingKey& row) {
    const SettingsEntry* entry = text.findEntry(row.section, row.key);
    return entry == nullptr ? std::string_view() : entry->value;
}

std::string keyLabel(const SettingKey& row) {
    return row.section == kMainSection ? std::string(row.key)
                                       : "[" + std::string(row.section) + "] " + std::string(row.key);
}

// --- single values

template <typename Value>
void addNumber(const SettingKey& row, std::string_view written, Table& table) {
    const auto value = strictValue<Value>(written);
    const Value counted = value.value_or(valueWhenMissing<Value>(row));
    table.rows.push_back({keyLabel(row), counted, value ? "from the file" : "default"});
}

void addFlag(const SettingKey& row, std::string_view written, Table& table) {
    const auto value = strictInt(written);
    const bool counted = value.value_or(valueWhenMissing<int>(row)) == 1;
    table.rows.push_back({keyLabel(row), counted, value ? "from the file" : "default"});
}

void addSingleValue(const SettingsText& text, const SettingKey& row, Table& table) {
    const std::string_view written = valueOf(text, row);
    if (row.grammar == ValueGrammar::Flag) addFlag(row, written, table);
    if (row.grammar == ValueGrammar::Integer) addNumber<int>(row, written, table);
    if (row.grammar == ValueGrammar::Decimal) addNumber<double>(row, written, table);
    if (row.grammar == ValueGrammar::Text) {
        const char* source = text.findEntry(row.section, row.key) == nullptr ? "default" : "from the file";
        table.rows.push_back({keyLabel(row), std::string(written), source});
    }
}

// --- values by platform

// The first load's outcome for a list: a default that it does not give is what the store is born with.
template <typename Value>
struct PlatformValues {
    Value builtIn;
    PerPlatformTable<Value> table;

    void enter(std::string_view text) {
        const auto item = perPlatformItem<Value>(text);
        if (item.kind == PerPlatformItemKind::Entry) table.byPlatform[item.platform] = item.value;
        if (item.kind == PerPlatformItemKind::Default) table.byDefault = item.value;
        if (item.kind == PerPlatformItemKind::BuiltInDefault) table.byDefault = builtIn;
    }
};

enum class EmptyItems { Squeezed, Kept };

template <typename Value>
void addPlatformValues(const SettingsText& text, const SettingKey& row, EmptyItems emptyItems, Table& table) {
    PlatformValues<Value> values{valueWhenMissing<Value>(row), {}};
    const auto enter = [&values](std::string_view item) { values.enter(item); };
    if (emptyItems == EmptyItems::Kept) splitKeepEmpty(valueOf(text, row), ';', enter);
    if (emptyItems == EmptyItems::Squeezed) splitSqueezed(valueOf(text, row), ';', enter);
    Answer platforms = Answer::object();
    for (const auto& [platform, value] : values.table.byPlatform)
        platforms[std::to_string(platform)] = value;
    table.rows.push_back({keyLabel(row), values.table.byDefault, platforms});
}

void addPlatformValue(const SettingsText& text, const SettingKey& row, Table& table) {
    switch (row.grammar) {
        case ValueGrammar::PerPlatformFlag:
            return addPlatformValues<bool>(text, row, EmptyItems::Squeezed, table);
        case ValueGrammar::PerPlatformInteger:
            return addPlatformValues<int>(text, row, EmptyItems::Squeezed, table);
        case ValueGrammar::PerPlatformFlagKeepEmpty:
            return addPlatformValues<bool>(text, row, EmptyItems::Kept, table);
        case ValueGrammar::PerPlatformDecimalKeepEmpty:
            return addPlatformValues<double>(text, row, EmptyItems::Kept, table);
        default:
            return;
    }
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
        const SettingsEntry* entry = text.findEntry(kMainSection, row.key);
        if (entry == nullptr) continue;
        forEachPlatformPiece(entry->value, [&](std::string_view piece, std::optional<int> platform) {
            if (!platform) pass(entry->line, entry->key, shownText(piece) + " is no platform ID", table);
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
        const SettingsEntry* entry = text.findEntry(kMainSection, row.key);
        if (entry == nullptr) continue;
        Answer platforms = Answer::array();
        forEachPlatformPiece(entry->value, [&platforms](std::string_view, std::optional<int> platform) {
            if (platform) platforms.push_back(*platform);
        });
        if (!platforms.empty()) table.rows.push_back({std::string(row.key), platforms});
    }
    table.title = "Switches in use, " + std::to_string(table.rows.size()) + " of " +
                  std::to_string(std::size(kPlatformSwitches)) + ", and the platforms they list";
    return table;
}

Table singleValuesOf(const SettingsText& text) {
    Table table{"values", "Single values", {"key", "value", "source"}, {}};
    for (const SettingKey& row : kSettingKeys) {
        if (row.key != "*" && !row.feeds.empty()) addSingleValue(text, row, table);
    }
    return table;
}

Table platformValuesOf(const SettingsText& text) {
    Table table{
        "platformValues", "Values by platform: all others, then those named", {"key", "others", "platforms"}, {}};
    for (const SettingKey& row : kSettingKeys) {
        if (row.key != "*" && !row.feeds.empty()) addPlatformValue(text, row, table);
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
