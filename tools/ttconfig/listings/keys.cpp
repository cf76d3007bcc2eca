// The key catalogue: lists the keys of the settings file, or shows everything about one key.
// Entry points: runKeys().
// Owns: the reference page of the keys.
// Covered by tests/tools/ttconfig/listings/listings_test.cpp.

#include <algorithm>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/listings/listings.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/nearestname.h"
#include "ttconfig/text/showntext.h"
#include "ttconfig/text/table.h"

namespace ttconfig {

namespace {

using ttservice::internal::kPlatformSwitches;
using ttservice::internal::kSettingKeys;
using ttservice::internal::PlatformSwitch;
using ttservice::internal::SettingKey;

constexpr const char* kKeysPage =
    "# Keys of the settings file\n\n"
    "Every key that is not a platform switch, section by section; `*` stands for every key of a section whose keys "
    "are\n"
    "data. *When missing* is what counts when the key is not there. Written by `ttconfig keys --format markdown`.\n";

// A table with a column for everything that is known about a key.
Table emptyKeyTable() {
    return {"keys", "", {"section", "key", "value", "when missing", "answered by", "meaning"}, {}};
}

void addKey(const SettingKey& row, Table& table) {
    table.rows.push_back({std::string(row.section), std::string(row.key), std::string(describe(row.grammar)),
                          std::string(row.whenMissing), std::string(row.feeds), std::string(row.meaning)});
}

void addSwitch(const PlatformSwitch& row, Table& table) {
    table.rows.push_back({"setting", std::string(row.key), "platform IDs separated by ,", "nobody is listed",
                          std::string(row.predicate) + " isSomePt getPts getAllpts", std::string(row.meaning)});
}

// The keys of that name, the keys of a section of that name, or the switch of that name.
Table keysNamed(std::string_view name) {
    Table table = emptyKeyTable();
    std::vector<std::string_view> names;
    for (const SettingKey& row : kSettingKeys) {
        if (row.key == name || row.section == name) addKey(row, table);
        names.insert(names.end(), {row.key, row.section});
    }
    for (const PlatformSwitch& row : kPlatformSwitches) {
        if (row.key == name) addSwitch(row, table);
        names.push_back(row.key);
    }
    if (table.rows.empty()) throw Fault(kExitUsage, "unknown key " + shownText(name) + didYouMean(name, names));
    return table;
}

Table allKeys() {
    Table table = emptyKeyTable();
    for (const SettingKey& row : kSettingKeys)
        addKey(row, table);
    return table;
}

// One block per key, one line per fact.
std::string keysInFull(const Table& table) {
    std::string text;
    for (const std::vector<Answer>& row : table.rows) {
        Table block{"", row[1].get<std::string>(), {"", ""}, {}};
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string value = row[i].get<std::string>();
            if (i != 1) block.rows.push_back({table.columns[i], value.empty() ? "nothing" : value});
        }
        if (!text.empty()) text += '\n';
        text += tableText(block);
    }
    return text;
}

// Only what fits on one line: the section, the value that counts without the key, and the meaning.
std::string keysInShort(const Table& table) {
    Table brief{"", "", {"section", "key", "when missing", "meaning"}, {}};
    for (const std::vector<Answer>& row : table.rows)
        brief.rows.push_back({row[0], row[1], row[3], row[5]});
    return tableText(brief);
}

// Names separated by blanks, each formatted as code.
std::string asCode(const std::string& names) {
    std::string text;
    ttservice::internal::splitDropEmpty(
        names, ' ', [&text](std::string_view name) { text += (text.empty() ? "`" : ", `") + std::string(name) + '`'; });
    return text;
}

// One table per section, in the order in which the catalogue first names the sections.
std::string keysPage(const Table& table) {
    std::string page = kKeysPage;
    std::vector<Answer> sections;
    for (const std::vector<Answer>& row : table.rows) {
        if (std::find(sections.begin(), sections.end(), row[0]) == sections.end()) sections.push_back(row[0]);
    }
    for (const Answer& section : sections) {
        Table part{"", "", {"key", "when missing", "value", "answered by", "meaning"}, {}};
        for (const std::vector<Answer>& row : table.rows) {
            if (row[0] == section)
                part.rows.push_back({row[1], row[3], row[2], asCode(row[4].get<std::string>()), row[5]});
        }
        page += "\n## [" + section.get<std::string>() + "]\n\n" + tableMarkdown(part, 2);
    }
    return page;
}

}  // namespace

void runKeys(const CommandLine& commandLine, Output& output) {
    const bool one = !commandLine.words.empty();
    const Table table = one ? keysNamed(commandLine.words.front()) : allKeys();
    switch (commandLine.format) {
        case Format::Text:
            output.write(one ? keysInFull(table) : keysInShort(table));
            break;
        case Format::Sarif:  // not offered here
        case Format::Json:
            output.write(answerJson(tableJson(table)) + '\n');
            break;
        case Format::Markdown:
            output.write(one ? tableMarkdown(table, 2) : keysPage(table));
            break;
    }
}

}  // namespace ttconfig
