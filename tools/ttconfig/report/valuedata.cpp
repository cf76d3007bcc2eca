// Value data: writes the single values and the values by platform.
// Entry points: writeScalarData(), writeValueData().
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/report/datawriters.h"
#include "ttconfig/tables/platformvalues.h"
#include "ttconfig/tables/single.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsText;

void write(JsonStream& json, const Answer& value) {
    if (value.is_boolean()) return json.flag(value.get<bool>());
    if (value.is_number_integer()) return json.integer(value.get<int>());
    if (value.is_number()) return json.decimal(value.get<double>());
    json.text(value.get_ref<const std::string&>());
}

// --- single values

// The member names for one file; those for the older file start with "old".
struct ScalarNames {
    const char* value;
    const char* given;
    const char* line;
};

void writeScalarOf(JsonStream& json, const SettingsText& text, const SettingKey& key, const ScalarNames& names,
                   LinkedLines& lines) {
    const SettingsEntry* entry = text.findEntry(key.section, key.key);
    const SingleValue value = singleValue(key, entry);
    json.name(names.value);
    write(json, value.answer);
    json.name(names.given);
    json.flag(value.isGiven);
    json.name(names.line);
    json.integer(entry == nullptr ? 0 : lines.mark(entry->line));
}

void writeAbout(JsonStream& json, const SettingKey& key) {
    json.name("section");
    json.text(key.section);
    json.name("key");
    json.text(key.key);
    json.name("meaning");
    json.text(key.meaning);
    json.name("feeds");
    json.text(key.feeds);
}

// --- values by platform

// How many entries may still be written.
struct Room {
    std::size_t left;
    std::size_t leftOut = 0;

    bool take() {
        if (left == 0) {
            ++leftOut;
            return false;
        }
        --left;
        return true;
    }
};

void writeValuesOf(JsonStream& json, const SettingsText& text, const SettingKey& key, LinkedLines& lines, Room& room) {
    const PlatformValueTable values = platformValues(text, key);
    json.name("default");
    write(json, numberAnswer(key, values.defaultNumber()));
    json.name("given");
    json.flag(values.byDefault && !values.byDefault->isBuiltInDefault());
    json.name("line");
    json.integer(values.entry == nullptr ? 0 : lines.mark(values.entry->line));
    json.name("entries");
    json.beginArray();
    for (const auto& [platform, item] : values.byPlatform) {
        if (!room.take()) continue;
        json.beginArray();
        json.integer(platform);
        write(json, numberAnswer(key, item.value));
        json.endArray();
    }
    json.endArray();
}

void writePlatformKey(JsonStream& json, const SettingKey& key, ReportState& state, Room& room) {
    json.beginObject();
    writeAbout(json, key);
    writeValuesOf(json, state.text(), key, state.lines, room);
    if (state.oldText() != nullptr) {
        json.name("old");
        json.beginObject();
        writeValuesOf(json, *state.oldText(), key, state.oldLines, room);
        json.endObject();
    }
    json.endObject();
}

}  // namespace

void writeScalarData(JsonStream& json, ReportState& state) {
    json.name("scalars");
    json.beginArray();
    for (const SettingKey& key : kSettingKeys) {
        if (!isSingleValue(key)) continue;
        json.beginObject();
        writeAbout(json, key);
        writeScalarOf(json, state.text(), key, {"value", "given", "line"}, state.lines);
        if (state.oldText() != nullptr) {
            writeScalarOf(json, *state.oldText(), key, {"oldValue", "oldGiven", "oldLine"}, state.oldLines);
        }
        json.endObject();
    }
    json.endArray();
}

// Keys that decide no answer are shown with the lists and catalogues instead, as written.
void writeValueData(JsonStream& json, ReportState& state) {
    Room room{state.bounds.rows};
    json.name("values");
    json.beginArray();
    for (const SettingKey& key : kSettingKeys) {
        if (isPerPlatform(key.grammar) && !key.feeds.empty()) writePlatformKey(json, key, state, room);
    }
    json.endArray();
    json.name("valuesLeftOut");
    json.integer(static_cast<std::int64_t>(room.leftOut));
}

}  // namespace ttconfig
