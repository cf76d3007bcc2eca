#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/switches/platformswitchtable.h"

// What the switch table and the overrides say of the switches that the library knows by name, one slot a switch, so
// that a predicate goes to its slot instead of searching two maps for its key. The maps stay what counts: whoever
// changes one of them tells the slots, under the same lock or for want of one at the same time.

namespace ttservice::internal {

// Whether the platform stands in the list. Lists are short, so it is looked for from the front.
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
    // Sets lists whose keys come sorted. A key that is no known switch has no slot and changes nothing. The list must
    // stay where it is until it is set anew or the lists are cleared; its content may change.
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
        std::size_t next = 0;  // of the first switch that is not below the key set last
    };

    void setOverride(std::string_view key, bool value) {
        const std::size_t index = platformSwitchIndex(key);
        if (index < slots.size()) slots[index].local = value ? Local::Yes : Local::No;
    }

    void clearLists() {
        for (Slot& slot : slots)
            slot.list = nullptr;
    }
    void clearOverrides() {
        for (Slot& slot : slots)
            slot.local = Local::None;
    }

    // The override if there is one, else whether the platform is listed.
    bool isListed(std::size_t index, int platformId) const {
        const Slot& slot = slots[index];
        if (slot.local != Local::None) return slot.local == Local::Yes;
        return slot.list != nullptr && internal::isListed(*slot.list, platformId);
    }

private:
    std::array<Slot, kPlatformSwitchCount> slots;
};

}  // namespace ttservice::internal
