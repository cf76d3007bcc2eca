#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "ttconfig/settings/place.h"

namespace ttconfig {

// The rows of a limit table as a list, for whoever goes through whole tables. One item of a row's key is small, and
// nothing of it is copied: a file may have hundreds of thousands. Good for as long as the settings text is.
struct LimitItemRow {
    const standin::SettingsEntry* entry;
    std::uint32_t start;  // in the key; the item ends at the next ","

    ttservice::internal::LimitItem item() const {
        const std::string_view rest = entry->key.substr(start);
        return ttservice::internal::limitItem(rest.substr(0, rest.find(',')));
    }
    Place place() const { return placeInKey(*entry, entry->key.substr(start)); }
};

using LimitItemRows = std::vector<LimitItemRow>;

// By market and item in upper case, without making it.
bool lessLimitItem(const LimitItemRow& left, const LimitItemRow& right);

// The rows that count, sorted: of several for one item the last, also across the sections. A row that has another
// number of fields is none.
LimitItemRows limitItems(const standin::SettingsText& text,
                         const std::vector<const ttservice::internal::SettingKey*>& sections, std::size_t fields);

// The row of market and item, both in upper case; null when there is none.
const LimitItemRow* findLimitItem(const LimitItemRows& rows, std::string_view market, std::string_view item);

}  // namespace ttconfig
