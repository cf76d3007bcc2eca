// Limit winners: answers which of several rows for one instrument or category counts.
// Doors: LimitWinners.
// Owns: the places that count.
// Covered by tests/tools/ttconfig/findings/findingparts_test.cpp.

#include "ttconfig/checks/limitwinners.h"

#include "ttconfig/text/uppercase.h"

namespace ttconfig {

using namespace ttservice::internal;

LimitWinners::LimitWinners(const standin::SettingsText& text, const std::vector<Section>& sections) {
    std::size_t count = 0;
    for (const Section& each : sections) {
        if (const auto* section = text.findSection(each.name)) {
            for (const standin::SettingsEntry& entry : section->entries)
                count += fieldCount(entry.key);
        }
    }
    std::size_t size = 16;
    while (size < count * 2)
        size *= 2;
    items.reserve(count);
    slots.assign(size, 0);
    for (const Section& each : sections) {
        if (const auto* section = text.findSection(each.name)) enter(*section, each.fields);
    }
}

void LimitWinners::enter(const standin::SettingsSection& section, std::size_t fields) {
    for (const standin::SettingsEntry& entry : section.entries) {
        if (entry.repeated || fieldCount(entry.value) != fields) continue;
        forEachLimitItem(entry.key, [&](const LimitItem& item) {
            const Place place = placeInKey(entry, item.text);
            std::uint32_t& slot = slots[slotOf(item.text)];
            if (slot != 0) {
                items[slot - 1].place = place;
            } else {
                items.push_back({item.text.data(), static_cast<std::uint32_t>(item.text.size()), place});
                slot = static_cast<std::uint32_t>(items.size());
            }
        });
    }
}

// The same text is the same market and item: both are split at the first "-", which upper case leaves where it is. Only
// an item without "-", which stands for itself twice, can come to the place of one with it.
std::size_t LimitWinners::slotOf(std::string_view item) const {
    const std::size_t mask = slots.size() - 1;
    std::size_t slot = upperHash(item) & mask;
    while (slots[slot] != 0) {
        const Item& there = items[slots[slot] - 1];
        if (isSameUpper({there.text, there.length}, item)) break;
        slot = (slot + 1) & mask;
    }
    return slot;
}

Place LimitWinners::winner(const LimitItem& item) const {
    const std::uint32_t number = slots.empty() ? 0 : slots[slotOf(item.text)];
    return number == 0 ? Place() : items[number - 1].place;
}

}  // namespace ttconfig
