// Platform changes: finds what differs for each platform, one platform after another.
// Entry points: tellPlatformChanges().
// Covered by tests/tools/ttconfig/differences/differencesoracle_test.cpp.

#include <algorithm>
#include <iterator>

#include "ttconfig/differences/changesink.h"

namespace ttconfig {

namespace {

// A platform's switches come before its other answers.
void tellSwitchesUpTo(int platform, std::vector<SwitchChange>::const_iterator& next,
                      std::vector<SwitchChange>::const_iterator end, const ChangeSink& tell) {
    for (; next != end && next->platform <= platform; ++next)
        tell(asChange(*next));
}

}  // namespace

void tellPlatformChanges(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell) {
    const std::vector<SwitchChange> switches = switchChanges(texts, wanted);
    std::vector<Change> others;
    const ChangeSink collect = [&others](Change change) { others.push_back(std::move(change)); };
    tellPlatformValueChanges(texts, wanted, collect);
    tellPlatformListChanges(texts, wanted, collect);
    const auto rest = std::stable_partition(others.begin(), others.end(),
                                            [](const Change& change) { return change.platform.has_value(); });
    std::stable_sort(others.begin(), rest,
                     [](const Change& left, const Change& right) { return *left.platform < *right.platform; });
    auto next = switches.begin();
    for (auto other = others.begin(); other != rest; ++other) {
        tellSwitchesUpTo(*other->platform, next, switches.end(), tell);
        tell(std::move(*other));
    }
    for (; next != switches.end(); ++next)
        tell(asChange(*next));
    std::for_each(rest, others.end(), [&tell](Change& change) { tell(std::move(change)); });
}

}  // namespace ttconfig
