#pragma once

#include <standin/settingstext.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/limits/limitrows.h"
#include "ttconfig/settings/place.h"

namespace ttconfig {

// For each market and item of a limit table, the place that counts: the last one in the order of a load. Smaller than
// the table itself, as it holds no texts and nothing about the places that lost.
class LimitWinners {
public:
    // One section whose rows go into the table, and how many fields a row has.
    struct Section {
        std::string_view name;
        std::size_t fields;
    };

    LimitWinners() = default;
    // Enters the rows of the sections, in the order in which a load does.
    LimitWinners(const standin::SettingsText& text, const std::vector<Section>& sections);

    // The place that counts; no place for an item that was not entered.
    Place winner(const ttservice::internal::LimitItem& item) const;

private:
    struct Item {
        const char* text;  // as written, with the "-" where there is one
        std::uint32_t length;
        Place place;
    };

    void enter(const standin::SettingsSection& section, std::size_t fields);
    // The slot of the item, or the free one where it would be.
    std::size_t slotOf(std::string_view item) const;

    std::vector<Item> items;
    std::vector<std::uint32_t> slots;  // numbers of items from 1, 0 where free; a power of two, half full at most
};

}  // namespace ttconfig
