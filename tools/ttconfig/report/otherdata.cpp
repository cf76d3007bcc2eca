// Other data: writes what a file says beyond switches, values and limits, as written.
// Entry points: writeOtherData().
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include <algorithm>
#include <string>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/limittables.h"
#include "ttconfig/report/datawriters.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsSection;

constexpr std::size_t kLongestShown = 400;

// Whether the key is shown with the lists and catalogues rather than in a table of its own.
bool isOther(const SettingKey& key) {
    switch (key.grammar) {
        case ValueGrammar::Flag:
        case ValueGrammar::Integer:
        case ValueGrammar::Text:
        case ValueGrammar::FixedIncomeNumbers:
            return false;
        case ValueGrammar::Decimal:
            return key.section != keys::standardBondUse.section;
        case ValueGrammar::PerPlatformFlag:
        case ValueGrammar::PerPlatformInteger:
        case ValueGrammar::PerPlatformFlagKeepEmpty:
        case ValueGrammar::PerPlatformDecimalKeepEmpty:
            return key.feeds.empty();
        default:
            return limitTableOf(key.section) == nullptr;
    }
}

class OtherWriter {
public:
    OtherWriter(JsonStream& stream, ReportState& reportState) : json(stream), state(reportState) {}

    void write(const SettingKey& key) {
        if (key.key != "*") {
            const SettingsEntry* now = state.text().findEntry(key.section, key.key);
            const SettingsEntry* before = oldEntry(key.section, key.key);
            if (now != nullptr || before != nullptr) writeRow(key.section, now, before);
            return;
        }
        writeSection(key.section);
    }

    std::size_t leftOut() const { return count - std::min(count, state.bounds.rows); }

private:
    void writeSection(std::string_view name) {
        if (const SettingsSection* section = state.text().findSection(name)) {
            for (const SettingsEntry& entry : section->entries) {
                if (!entry.repeated) writeRow(name, &entry, oldEntry(name, entry.key));
            }
        }
        if (state.oldText() == nullptr) return;
        if (const SettingsSection* section = state.oldText()->findSection(name)) {
            for (const SettingsEntry& entry : section->entries) {
                if (!entry.repeated && state.text().findEntry(name, entry.key) == nullptr) {
                    writeRow(name, nullptr, &entry);
                }
            }
        }
    }

    const SettingsEntry* oldEntry(std::string_view section, std::string_view key) const {
        return state.oldText() == nullptr ? nullptr : state.oldText()->findEntry(section, key);
    }

    void writeRow(std::string_view section, const SettingsEntry* now, const SettingsEntry* before) {
        if (count++ >= state.bounds.rows) return;
        json.beginArray();
        json.text(section);
        json.text(cutText(now != nullptr ? now->key : before->key, kLongestShown));
        writeSide(now, state.lines);
        if (state.oldText() != nullptr) writeSide(before, state.oldLines);
        json.endArray();
    }

    void writeSide(const SettingsEntry* entry, LinkedLines& lines) {
        if (entry == nullptr) {
            json.null();
        } else {
            json.text(cutText(entry->value, kLongestShown));
        }
        json.integer(entry == nullptr ? 0 : lines.mark(entry->line));
    }

    JsonStream& json;
    ReportState& state;
    std::size_t count = 0;
};

}  // namespace

void writeOtherData(JsonStream& json, ReportState& state) {
    OtherWriter writer(json, state);
    json.name("others");
    json.beginArray();
    for (const SettingKey& key : kSettingKeys) {
        if (isOther(key)) writer.write(key);
    }
    json.endArray();
    json.name("othersLeftOut");
    json.integer(static_cast<std::int64_t>(writer.leftOut()));
}

}  // namespace ttconfig
