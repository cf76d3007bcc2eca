// Platform switches: answers for which platforms a behaviour is on.
// Doors: setPts, getPts, getAllpts, isSomePt, the predicates, isCanQueryETFFromCounter, the split permissions.
// Owns: ptsMutex, pts, splitPermission; reads the local overrides.
// Covered by tests/config/platformswitches_test.cpp.

#include <array>
#include <charconv>
#include <utility>

#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/platformlist.h"
#include "traderbase/base/config/internal/platformswitchtable.h"

namespace ttservice {

namespace {

using internal::isListed;
using Reader = internal::ReadMostlyMutex::Reader;
using Writer = internal::ReadMostlyMutex::Writer;

// Enters lists, in the order of their keys, into the table that is in this order as well: the place behind the one that
// was found last is mostly the next one's, and nothing has to be searched for.
template <typename Table>
class Merge {
public:
    Merge(Table& target, internal::PlatformSwitchSlots& slots) : table(target), known(slots), place(table.begin()) {}

    template <typename Key>
    void enter(Key&& key, std::vector<int>&& list) {
        const std::size_t before = table.size();
        place = table.try_emplace(place, std::forward<Key>(key), std::move(list));
        if (table.size() == before) place->second = std::move(list);
        known.set(place->first, place->second);
        ++place;
    }

private:
    Table& table;
    internal::PlatformSwitchSlots::SortedLists known;
    typename Table::iterator place;
};

constexpr int kSecondsOfDay = 86400;
constexpr int kNightTradingStart = 73800;  // 20:30:00

}  // namespace

void ConfigCollector::setPts(std::map<std::string, std::vector<int>> lists) {
    const Writer writer(ptsMutex);
    Merge merge(pts, switchSlots);
    for (auto& [key, list] : lists)
        merge.enter(key, std::move(list));
}

// The lists of a load, which are used up.
void ConfigCollector::setLists(internal::SwitchLists lists) {
    const Writer writer(ptsMutex);
    Merge merge(pts, switchSlots);
    for (const internal::PlacedKey& each : lists.byKey)
        merge.enter(std::move(lists.keys[each.index]), std::move(lists.lists[each.index]));
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
    splitPermission = permissions;
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
