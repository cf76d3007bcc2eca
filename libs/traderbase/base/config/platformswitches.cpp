// Platform switches: answers for which platforms a behaviour is on.
// Doors: setPts, getPts, getAllpts, isSomePt, the predicates, isCanQueryETFFromCounter, the split permissions.
// Owns: ptsMutex, pts, splitPermission; reads the local overrides.
// Covered by tests/config/platformswitches_test.cpp.

#include <array>
#include <charconv>
#include <utility>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"

namespace ttservice {

namespace {

using internal::isListed;
using Reader = internal::ReadMostlyMutex::Reader;
using Writer = internal::ReadMostlyMutex::Writer;

// New lists for a table, keys in order. Everything that may fail is done while they are collected, so that a table has
// all of them or none.
template <typename Table>
class NewLists {
public:
    explicit NewLists(Table& target) : table(target), place(table.begin()) {}

    // The list is left where it is until enter() when its key is known.
    template <typename Key>
    void add(Key&& key, std::vector<int>& list) {
        // Behind the key that was found last there is mostly the next one.
        if (place == table.end() || place->first != key) place = table.lower_bound(key);
        if (place == table.end() || place->first != key) {
            unknown.emplace_hint(unknown.end(), std::forward<Key>(key), std::move(list));
        } else {
            known.emplace_back(&place->second, &list);
            ++place;
        }
    }

    void enter(internal::PlatformSwitchSlots& slots) noexcept {
        for (const auto& [list, newList] : known)
            list->swap(*newList);
        internal::PlatformSwitchSlots::SortedLists sorted(slots);
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

constexpr int kSecondsOfDay = 86400;
constexpr int kNightTradingStart = 73800;  // 20:30:00

}  // namespace

void ConfigCollector::setPts(std::map<std::string, std::vector<int>> lists) {
    const Writer writer(ptsMutex);
    NewLists newLists(pts);
    for (auto& [key, list] : lists)
        newLists.add(key, list);
    newLists.enter(switchSlots);
}

// The lists of a load, which are used up.
void ConfigCollector::setLists(internal::SwitchLists lists) {
    const Writer writer(ptsMutex);
    NewLists newLists(pts);
    for (const internal::PlacedKey& each : lists.byKey)
        newLists.add(std::move(lists.keys[each.index]), lists.lists[each.index]);
    newLists.enter(switchSlots);
}

std::vector<int> ConfigCollector::getPts(const std::string& key) const {
    const Reader reader(ptsMutex);
    const auto found = pts.find(key);
    return found == pts.end() ? std::vector<int>() : found->second;
}

std::map<std::string, std::vector<int>> ConfigCollector::getAllpts() const {
    const Reader reader(ptsMutex);
    return {pts.begin(), pts.end()};
}

bool ConfigCollector::isSomePt(std::string_view key, int platformId) const {
    const Reader reader(ptsMutex);
    const auto local = localOverrides.find(key);
    if (local != localOverrides.end()) return local->second;
    const auto found = pts.find(key);
    return found != pts.end() && isListed(found->second, platformId);
}

// The same for a known switch, without a search.
bool ConfigCollector::isSwitchListed(std::size_t switchIndex, int platformId) const {
    const Reader reader(ptsMutex);
    return switchSlots.isListed(switchIndex, platformId);
}

// An override is turned round like any other answer.
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning)                                                            \
    bool ConfigCollector::predicate(int platformId) const {                                                           \
        constexpr std::size_t kIndex = internal::platformSwitchIndex(key);                                            \
        static_assert(kIndex < internal::kPlatformSwitchCount, "every row of the table is known");                    \
        return isSwitchListed(kIndex, platformId) == (internal::SwitchSense::sense == internal::SwitchSense::Listed); \
    }
#include "traderbase/base/config/platformswitches.def"

bool ConfigCollector::isCanQueryETFFromCounter(int platformId) const {
    std::array<char, 12> digits;  // "-2147483648" and room to spare
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), platformId).ptr;
    return std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())) == etfBrokerClientTag;
}

void ConfigCollector::setSplitPermission(const std::map<std::string, int>& permissions) {
    auto copy = permissions;
    splitPermission.swap(copy);
}

int ConfigCollector::getMaxPermission(std::string name) const {
    const auto found = splitPermission.find(name);
    return found == splitPermission.end() ? 0 : found->second;
}

int ConfigCollector::getRealNumber(int secondOfDay) {
    return secondOfDay >= kNightTradingStart ? secondOfDay - kSecondsOfDay : secondOfDay;
}

int ConfigCollector::getSerialNumber(int clockTime) {
    return getRealNumber(clockTime / 10000 * 3600 + clockTime % 10000 / 100 * 60 + clockTime % 100);
}

}  // namespace ttservice
