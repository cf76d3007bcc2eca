// Switch table: keeps the platform lists, the overrides and the slots of the known switches in step.
// Entry points: PlatformSwitches.
// Owns: the lists and the overrides.
// Covered by tests/config/platformswitches_test.cpp.

#include "traderbase/base/config/internal/switches/platformswitches.h"

#include <utility>

#include "traderbase/base/config/internal/platforms/platformlist.h"

namespace ttservice::internal {

namespace {

using Reader = ReadMostlyMutex::Reader;
using Writer = ReadMostlyMutex::Writer;

// Collects new lists for a table, with keys in order. Everything that can fail happens while collecting, so that the
// table gets all of the lists or none.
template <typename Table>
class NewLists {
public:
    explicit NewLists(Table& target) : table(target), place(table.begin()) {}

    // If the key is known, the list itself stays where it is until enter().
    template <typename Key>
    void add(Key&& key, std::vector<int>& list) {
        // Keys usually arrive in order, so try the next node before searching.
        if (place == table.end() || place->first != key) place = table.lower_bound(key);
        if (place == table.end() || place->first != key) {
            unknown.emplace_hint(unknown.end(), std::forward<Key>(key), std::move(list));
        } else {
            known.emplace_back(&place->second, &list);
            ++place;
        }
    }

    void enter(PlatformSwitchSlots& slots) noexcept {
        for (const auto& [list, newList] : known)
            list->swap(*newList);
        PlatformSwitchSlots::SortedLists sorted(slots);
        for (const auto& [key, list] : unknown)
            sorted.set(key, list);
        if (table.empty()) return table.swap(unknown);
        for (place = table.begin(); !unknown.empty(); ++place)
            place = table.insert(place, unknown.extract(unknown.begin()));
    }

private:
    Table& table;
    typename Table::iterator place;
    Table unknown;
    std::vector<std::pair<std::vector<int>*, std::vector<int>*>> known;
};

}  // namespace

void PlatformSwitches::replace(std::map<std::string, std::vector<int>> newLists) {
    const Writer writer(mutex);
    NewLists entering(lists);
    for (auto& [key, list] : newLists)
        entering.add(key, list);
    entering.enter(slots);
}

void PlatformSwitches::replace(SwitchLists newLists) {
    const Writer writer(mutex);
    NewLists entering(lists);
    for (const PlacedKey& each : newLists.byKey)
        entering.add(std::move(newLists.keys[each.index]), newLists.lists[each.index]);
    entering.enter(slots);
}

std::vector<int> PlatformSwitches::list(const std::string& key) {
    const Reader reader(mutex);
    const auto found = lists.find(key);
    return found == lists.end() ? std::vector<int>() : found->second;
}

std::map<std::string, std::vector<int>> PlatformSwitches::all() {
    const Reader reader(mutex);
    return {lists.begin(), lists.end()};
}

void PlatformSwitches::addOverride(const std::string& key, bool value) {
    overrides[key] = value;
    slots.setOverride(key, value);
}

void PlatformSwitches::replaceOverrides(const std::map<std::string, bool>& newOverrides) {
    overrides = {newOverrides.begin(), newOverrides.end()};
    slots.clearOverrides();
    for (const auto& [key, value] : overrides)
        slots.setOverride(key, value);
}

bool PlatformSwitches::isOn(std::string_view key, int platformId) {
    const Reader reader(mutex);
    const auto local = overrides.find(key);
    if (local != overrides.end()) return local->second;
    const auto found = lists.find(key);
    return found != lists.end() && isListed(found->second, platformId);
}

bool PlatformSwitches::isKnownOn(std::size_t switchIndex, int platformId) {
    const Reader reader(mutex);
    return slots.isListed(switchIndex, platformId);
}

}  // namespace ttservice::internal
