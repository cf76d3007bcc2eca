// The values' data: answers the single values and the values by platform.
// Doors: writeScalarData(), writeValueData().
// Owns: nothing.
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include <string>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/report/datawriters.h"
#include "ttconfig/tables/platformvaluefacts.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsText;

void write(JsonStream& json, bool value) {
    json.flag(value);
}
void write(JsonStream& json, int value) {
    json.integer(value);
}
void write(JsonStream& json, double value) {
    json.decimal(value);
}

// --- single values

template <typename Value>
bool writeNumber(JsonStream& json, const SettingKey& key, std::string_view text) {
    const auto value = strictValue<Value>(text);
    write(json, value.value_or(valueWhenMissing<Value>(key)));
    return value.has_value();
}

// Writes what counts; answers whether it is the file that says it.
bool writeScalarValue(JsonStream& json, const SettingKey& key, const SettingsEntry* entry) {
    const std::string_view text = entry == nullptr ? std::string_view() : entry->value;
    switch (key.grammar) {
        case ValueGrammar::Flag: {
            const auto number = strictInt(text);
            json.flag(number.value_or(valueWhenMissing<int>(key)) == 1);
            return number.has_value();
        }
        case ValueGrammar::Integer:
            return writeNumber<int>(json, key, text);
        case ValueGrammar::Decimal:
            return writeNumber<double>(json, key, text);
        default:
            json.text(text);
            return entry != nullptr;
    }
}

bool isScalar(const SettingKey& key) {
    const bool isSingle = key.grammar == ValueGrammar::Flag || key.grammar == ValueGrammar::Integer ||
                          key.grammar == ValueGrammar::Decimal || key.grammar == ValueGrammar::Text;
    return isSingle && key.key != "*";
}

// With "old" in front of their names, the members are about the older file.
struct ScalarNames {
    const char* value;
    const char* given;
    const char* line;
};

void writeScalarOf(JsonStream& json, const SettingsText& text, const SettingKey& key, const ScalarNames& names,
                   LinkedLines& lines) {
    const SettingsEntry* entry = text.findEntry(key.section, key.key);
    json.name(names.value);
    const bool given = writeScalarValue(json, key, entry);
    json.name(names.given);
    json.flag(given);
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

template <typename Value>
void writeValuesOf(JsonStream& json, const SettingsText& text, const SettingKey& key, LinkedLines& lines, Room& room) {
    const PlatformValues<Value> values = platformValues<Value>(text, key);
    json.name("default");
    write(json, values.defaultValue());
    json.name("given");
    json.flag(values.byDefault.has_value() &&
              values.items[*values.byDefault].read.kind == PerPlatformItemKind::Default);
    json.name("line");
    json.integer(values.entry == nullptr ? 0 : lines.mark(values.entry->line));
    json.name("entries");
    json.beginArray();
    for (const auto& [platform, number] : values.byPlatform) {
        if (!room.take()) continue;
        json.beginArray();
        json.integer(platform);
        write(json, values.items[number].read.value);
        json.endArray();
    }
    json.endArray();
}

template <typename Value>
void writePlatformKey(JsonStream& json, const SettingKey& key, ReportState& state, Room& room) {
    json.beginObject();
    writeAbout(json, key);
    writeValuesOf<Value>(json, state.text(), key, state.lines, room);
    if (state.oldText() != nullptr) {
        json.name("old");
        json.beginObject();
        writeValuesOf<Value>(json, *state.oldText(), key, state.oldLines, room);
        json.endObject();
    }
    json.endObject();
}

void writePlatformKeyByGrammar(JsonStream& json, const SettingKey& key, ReportState& state, Room& room) {
    switch (key.grammar) {
        case ValueGrammar::PerPlatformFlag:
        case ValueGrammar::PerPlatformFlagKeepEmpty:
            return writePlatformKey<bool>(json, key, state, room);
        case ValueGrammar::PerPlatformInteger:
            return writePlatformKey<int>(json, key, state, room);
        case ValueGrammar::PerPlatformDecimalKeepEmpty:
            return writePlatformKey<double>(json, key, state, room);
        default:
            return;
    }
}

}  // namespace

void writeScalarData(JsonStream& json, ReportState& state) {
    json.name("scalars");
    json.beginArray();
    for (const SettingKey& key : kSettingKeys) {
        if (!isScalar(key)) continue;
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

// Keys that no question is answered from are told with the lists and catalogues, as they are written.
void writeValueData(JsonStream& json, ReportState& state) {
    Room room{state.bounds.rows};
    json.name("values");
    json.beginArray();
    for (const SettingKey& key : kSettingKeys) {
        if (!key.feeds.empty()) writePlatformKeyByGrammar(json, key, state, room);
    }
    json.endArray();
    json.name("valuesLeftOut");
    json.integer(static_cast<std::int64_t>(room.leftOut));
}

}  // namespace ttconfig
