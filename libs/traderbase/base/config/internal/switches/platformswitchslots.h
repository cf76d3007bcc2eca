#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/switches/platformswitchtable.h"

// One slot per known switch with its list and override, so that a predicate reads its slot instead of searching two
// maps for its key. The maps stay authoritative: code that changes one of them also updates the slots, under the same
// lock if there is one.

namespace ttservice::internal {

// Whether the platform is in the list. Lists are short, so a linear search is enough.
inline bool isListed(const std::vector<int>& list, int platformId) {
    return std::find(list.begin(), list.end(), platformId) != list.end();
}

class PlatformSwitchSlots {
    enum class Local : unsigned char { None, No, Yes };
    struct Slot {
        const std::vector<int>* list = nullptr;
        Local local = Local::None;
    };

public:
    // Sets lists in key order. A key that is not a known switch has no slot and is ignored. A list must stay at its
    // address until its slot is set again or the lists are cleared; its contents may change.
    class SortedLists {
    public:
        explicit SortedLists(PlatformSwitchSlots& target) : slots(target.slots) {}
        void set(std::string_view key, const std::vector<int>& list) {
            while (next < slots.size() && kPlatformSwitches[next].key < key)
                ++next;
            if (next < slots.size() && kPlatformSwitches[next].key == key) slots[next].list = &list;
        }

    private:
        std::array<Slot, kPlatformSwitchCount>& slots;
        std::size_t next = 0;  // the first switch not below the key that was set last
    };

    void setOverride(std::string_view key, bool value) {
        const std::size_t index = platformSwitchIndex(key);
        if (index < slots.size()) slots[index].local = value ? Local::Yes : Local::No;
    }

    void clearOverrides() {
        for (Slot& slot : slots)
            slot.local = Local::None;
    }

    // The override if there is one, otherwise whether the platform is listed.
    bool isListed(std::size_t index, int platformId) const {
        const Slot& slot = slots[index];
        if (slot.local != Local::None) return slot.local == Local::Yes;
        return slot.list != nullptr && internal::isListed(*slot.list, platformId);
    }

private:
    std::array<Slot, kPlatformSwitchCount> slots;
};

}  // namespace ttservice::internal
