// The settings context: tells the checks of one entry what they need to know about the rest of the file.
// Entry points: SettingsContext.
// Owns: what is collected from the whole file, each part on first use.
// Covered by tests/tools/ttconfig/findings/checking_test.cpp.

#include "ttconfig/checks/context.h"

#include "traderbase/base/config/internal/platforms/perplatformlist.h"
#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;

std::string_view valueOf(const standin::SettingsText& text, const SettingKey& row) {
    const SettingsEntry* entry = text.findEntry(row.section, row.key);
    return entry == nullptr ? std::string_view() : entry->value;
}

}  // namespace

void SettingsContext::collectPlatforms() {
    platforms.emplace();
    for (const PlatformSwitch& row : kPlatformSwitches) {
        const SettingsEntry* entry = text.findEntry(kMainSection, row.key);
        if (entry == nullptr || entry->value == "0" || entry->value == "1") continue;
        forEachPlatformPiece(entry->value, [this](std::string_view, std::optional<int> id) {
            if (id) platforms->insert(*id);
        });
    }
    for (const SettingKey& row : kSettingKeys) {
        if (row.key == "*" || !isPerPlatform(row.grammar)) continue;
        splitKeepEmpty(valueOf(text, row), ';', [this](std::string_view item) {
            const std::size_t colon = item.find(':');
            const auto id = colon == std::string_view::npos ? std::nullopt : strictInt(item.substr(0, colon));
            if (id) platforms->insert(*id);
        });
    }
}

bool SettingsContext::mentionsPlatform(int id) {
    if (!platforms) collectPlatforms();
    return platforms->count(id) > 0;
}

const ContractCatalogue& SettingsContext::contracts() {
    if (!catalogue) {
        catalogue.emplace();
        enterContracts(valueOf(text, keys::contracts), *catalogue);
    }
    return *catalogue;
}

const SettingsEntry* SettingsContext::fundsOf(int id) {
    if (!funds) {
        funds.emplace();
        const standin::SettingsSection* section = text.findSection(keys::sloBalanceFirstFunds.section);
        if (section != nullptr) {
            for (const SettingsEntry& entry : section->entries) {
                if (!entry.repeated) (*funds)[looseInt(entry.key)] = &entry;
            }
        }
    }
    const auto found = funds->find(id);
    return found == funds->end() ? nullptr : found->second;
}

}  // namespace ttconfig
