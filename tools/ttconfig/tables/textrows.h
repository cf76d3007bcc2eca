#pragma once

#include <standin/settingstext.h>

#include "traderbase/base/config/internal/keys/settingkeys.h"

namespace ttconfig {

// Feeds the library's walks through whole sections with the rows of a settings text and their places.
class TextRows {
public:
    explicit TextRows(const standin::SettingsText& settings) : text(settings) {}

    // Passes every entry of the key's section to sink(SettingsEntry), in file order.
    template <typename Sink>
    void forEach(const ttservice::internal::SettingKey& row, Sink&& sink) const {
        const standin::SettingsSection* section = text.findSection(row.section);
        if (section == nullptr) return;
        for (const standin::SettingsEntry& entry : section->entries)
            sink(entry);
    }

private:
    const standin::SettingsText& text;
};

}  // namespace ttconfig
