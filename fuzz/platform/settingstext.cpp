// The settings reader on arbitrary bytes: every view lies in the buffer at its stated place, no line is lost, and the
// result matches a slow reader's.

#include "standin/settingstext.h"

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/support/target.h"
#include "tests/support/slowsettings.h"

namespace {

using fuzz::require;
using standin::IgnoredLine;
using standin::IgnoredReason;
using standin::SettingsEntry;
using standin::SettingsHeader;
using standin::SettingsSection;
using standin::SettingsText;

// Where each line of the text starts; line 1 is the first.
std::vector<const char*> lineStarts(std::string_view bytes) {
    std::vector<const char*> starts{nullptr, bytes.data()};
    for (const char& character : bytes) {
        if (character == '\n') starts.push_back(&character + 1);
    }
    return starts;
}

class Places {
public:
    explicit Places(std::string_view text) : bytes(text), starts(lineStarts(text)) {}

    void check(std::string_view view, std::uint32_t line, std::uint32_t column) const {
        require(fuzz::isWithin(view, bytes), "views lie in the buffer");
        require(line >= 1 && line < starts.size() && column >= 1, "places are in the text");
        require(starts[line] + (column - 1) == view.data(), "a view stands where its line and column say");
        require(view.find('\n') == std::string_view::npos, "a view does not leave its line");
    }

    void checkBracket(std::uint32_t line, std::uint32_t column) const {
        require(line >= 1 && line < starts.size() && column >= 1, "places are in the text");
        const char* const place = starts[line] + (column - 1);
        require(place < bytes.data() + bytes.size() && *place == '[', "a header stands where its bracket is");
    }

private:
    std::string_view bytes;
    std::vector<const char*> starts;
};

void checkEntries(const Places& places, const std::vector<SettingsEntry>& entries) {
    std::uint32_t before = 0;
    for (const SettingsEntry& entry : entries) {
        places.check(entry.key, entry.line, entry.keyColumn);
        places.check(entry.value, entry.line, entry.valueColumn);
        require(!entry.key.empty(), "an entry has a key");
        require(entry.line > before, "entries stand in file order, one a line");
        before = entry.line;
    }
}

void checkRepeats(const SettingsText& text, const SettingsSection& section) {
    for (const SettingsEntry& entry : section.entries) {
        const auto first = std::find_if(section.entries.begin(), section.entries.end(),
                                        [&entry](const SettingsEntry& other) { return other.key == entry.key; });
        require(entry.repeated == (&*first != &entry), "the first entry of a key counts and no other");
        require(text.findEntry(section.name, entry.key) == &*first, "the look-up finds the entry that counts");
    }
}

// The number of lines that are neither blank nor comments.
std::size_t tellingLines(std::string_view bytes) {
    std::size_t count = 0;
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        const bool isEnded = end < bytes.size();
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(isEnded ? end + 1 : end);
        if (isEnded && !line.empty() && line.back() == '\r') line.remove_suffix(1);
        const std::size_t first = line.find_first_not_of(" \t");
        if (first != std::string_view::npos && line[first] != ';' && line[first] != '#') ++count;
    }
    return count;
}

void checkLines(const SettingsText& text, const Places& places) {
    std::size_t lines = text.entriesOutside().size();
    checkEntries(places, text.entriesOutside());
    for (const SettingsSection& section : text.sections()) {
        require(!section.headers.empty(), "a section has a header");
        require(text.findSection(section.name) == &section, "the look-up finds the section");
        for (const SettingsHeader& header : section.headers)
            places.checkBracket(header.line, header.column);
        checkEntries(places, section.entries);
        checkRepeats(text, section);
        lines += section.headers.size() + section.entries.size();
    }
    for (const IgnoredLine& ignored : text.ignoredLines()) {
        places.check(ignored.text, ignored.line, ignored.column);
        require(!ignored.text.empty(), "nothing is not ignored");
        if (ignored.reason != IgnoredReason::kBehindHeader) ++lines;
    }
    require(lines == tellingLines(text.bytes()), "no line is lost");
}

tests::Sections asRead(const SettingsText& text) {
    tests::Sections all;
    for (const SettingsSection& section : text.sections()) {
        tests::Section& copy = all.emplace_back(tests::Section{std::string(section.name), {}});
        for (const SettingsEntry& entry : section.entries) {
            if (!entry.repeated) copy.entries.emplace_back(entry.key, entry.value);
        }
    }
    return all;
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    SettingsText text{std::string(input)};
    checkLines(text, Places(text.bytes()));
    require(asRead(text) == tests::slowlyRead(std::string(input)), "the rules read slowly say the same");

    // A move keeps the views valid.
    const SettingsText moved(std::move(text));
    checkLines(moved, Places(moved.bytes()));
    require(moved.hasByteOrderMark() == (input.substr(0, 3) == "\xEF\xBB\xBF"), "the byte order mark is told");
}

TT_FUZZ_TARGET
