// Switch changes: finds the platforms that a switch lists in only one of the texts.
// Entry points: switchChanges(), asChange().
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp and differencelists_test.cpp.

#include <algorithm>
#include <tuple>
#include <unordered_set>

#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/differences/changesink.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/tables/platformlist.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsSection;

constexpr std::string_view kSwitchSection = "setting";

// A platform, and the first piece that lists it.
struct Listed {
    int platform;
    Place place;
};

bool lessListed(const Listed& left, const Listed& right) {
    return left.platform < right.platform;
}

void listPlatforms(const SettingsEntry* entry, std::vector<Listed>& list) {
    list.clear();
    if (entry == nullptr) return;
    forEachListed(*entry, [&list](const ListedPlatform& piece) {
        if (piece.platform) list.push_back({*piece.platform, piece.place});
    });
    keepFirstOfEqual(list, lessListed);
}

// Every key of the main section is a switch for isSomePt(), except those known to hold values.
bool holdsValue(std::string_view key) {
    static const std::unordered_set<std::string_view> kKeys = [] {
        std::unordered_set<std::string_view> keys;
        for (const SettingKey& row : kSettingKeys) {
            if (row.section == kSwitchSection) keys.insert(row.key);
        }
        return keys;
    }();
    return kKeys.count(key) != 0;
}

// Finds the changes of all keys.
class SwitchChanges {
public:
    explicit SwitchChanges(const std::vector<int>& wantedPlatforms) : wanted(wantedPlatforms) {}

    void compareAll(const TextPair& texts) {
        static const std::vector<SettingsEntry> kNone;
        const SettingsSection* oldSection = texts.before.findSection(kSwitchSection);
        const SettingsSection* newSection = texts.after.findSection(kSwitchSection);
        const auto& before = oldSection == nullptr ? kNone : oldSection->entries;
        const auto& after = newSection == nullptr ? kNone : newSection->entries;
        // Most keys stand at the same position in both files and need no look-up.
        const auto alike = [&](std::size_t i) {
            return i < before.size() && i < after.size() && !before[i].repeated && !after[i].repeated &&
                   before[i].key == after[i].key;
        };
        for (std::size_t i = 0; i < before.size(); ++i) {
            if (before[i].repeated) continue;
            compare(before[i].key,
                    {&before[i], alike(i) ? &after[i] : texts.after.findEntry(kSwitchSection, before[i].key)});
        }
        for (std::size_t i = 0; i < after.size(); ++i) {
            if (after[i].repeated || alike(i)) continue;
            if (texts.before.findEntry(kSwitchSection, after[i].key) == nullptr)
                compare(after[i].key, {nullptr, &after[i]});
        }
    }

    std::vector<SwitchChange> sorted() {
        std::sort(changes.begin(), changes.end(), [](const SwitchChange& left, const SwitchChange& right) {
            return std::tie(left.platform, left.number, left.key) < std::tie(right.platform, right.number, right.key);
        });
        return std::move(changes);
    }

private:
    void compare(std::string_view key, const EntryPair& entries) {
        if (entries.sayTheSame() || holdsValue(key)) return;
        listPlatforms(entries.before, oldList);
        listPlatforms(entries.after, newList);
        const std::size_t number = platformSwitchIndex(key);
        const bool whenListed =
            number == kPlatformSwitchCount || kPlatformSwitches[number].sense == SwitchSense::Listed;
        mergeRows(oldList, newList, lessListed, [&](const Listed& one, const Listed* left, const Listed* right) {
            if (left != nullptr && right != nullptr) return;
            if (!isWanted(wanted, one.platform)) return;
            const bool isListed = right != nullptr;
            changes.push_back({one.platform, key, number, isListed == whenListed,
                               left != nullptr ? left->place : entries.oldPlace(),
                               right != nullptr ? right->place : entries.newPlace()});
        });
    }

    const std::vector<int>& wanted;
    std::vector<SwitchChange> changes;
    std::vector<Listed> oldList;
    std::vector<Listed> newList;
};

}  // namespace

std::vector<SwitchChange> switchChanges(const TextPair& texts, const std::vector<int>& wanted) {
    SwitchChanges changes(wanted);
    changes.compareAll(texts);
    return changes.sorted();
}

Change asChange(const SwitchChange& found) {
    std::string question = found.number < kPlatformSwitchCount ? std::string(kPlatformSwitches[found.number].predicate)
                                                               : "isSomePt(\"" + std::string(found.key) + "\")";
    return changeOf(ChangeTopic::Switch, found.platform, std::move(question), {!found.after, found.oldPlace},
                    {found.after, found.newPlace});
}

}  // namespace ttconfig
