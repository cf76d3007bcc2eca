// The INI reader: one pass over one buffer, and the look-ups.
// Entry points: SettingsText(bytes), load(), findSection(), findEntry().
// Owns: the rules of the format, the two hash tables.
// Test: tests/platform/settingstext_test.cpp, tests/platform/settingsoracle_test.cpp
#include "standin/settingstext.h"

#include <functional>
#include <limits>
#include <utility>

namespace standin {

namespace {

constexpr std::uint32_t kFree = std::numeric_limits<std::uint32_t>::max();
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool isBlank(char character) {
    return character == ' ' || character == '\t';
}

// The text without surrounding blanks; for a blank text, the empty view at its end.
std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::size_t hashOf(std::string_view text) {
    return std::hash<std::string_view>{}(text);
}

// 32 bits are enough for any table that a file fills.
std::uint32_t hashOf(std::uint32_t section, std::string_view key) {
    return static_cast<std::uint32_t>(hashOf(key)) + section * 0x9E3779B9U;
}

// Table sizes are powers of two, and tables are at most two thirds full, so that a probe soon finds a free slot.
bool isFull(std::size_t used, std::size_t slots) {
    return (used + 1) * 3 > slots * 2;
}
// Large tables grow in larger steps: for them, rehashing every key costs more than the memory.
std::size_t grownSize(std::size_t slots) {
    if (slots == 0) return 64;
    return slots < 16384 ? slots * 2 : slots * 4;
}

}  // namespace

class SettingsText::Reader {
public:
    explicit Reader(SettingsText& target) : text(target) {}

    void run() {
        const std::string_view bytes = text.bytes();
        std::size_t start = 0;
        while (start < bytes.size()) {
            const std::size_t end = bytes.find('\n', start);
            ++lineNumber;
            if (end == std::string_view::npos) {
                readLine(bytes.substr(start));
                return;
            }
            std::string_view line = bytes.substr(start, end - start);
            if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
            readLine(line);
            start = end + 1;
        }
    }

private:
    void readLine(std::string_view line) {
        lineStart = line.data();
        const std::string_view content = trimmed(line);
        if (content.empty() || content.front() == ';' || content.front() == '#') return;
        if (content.front() == '[') {
            readHeader(content);
            return;
        }
        const std::size_t sign = content.find('=');
        if (sign == std::string_view::npos || sign == 0) {
            ignore(content, sign == 0 ? IgnoredReason::kNoKey : IgnoredReason::kNoEqualSign);
            return;
        }
        addEntry(trimmed(content.substr(0, sign)), trimmed(content.substr(sign + 1)));
    }

    void readHeader(std::string_view content) {
        const std::size_t close = content.find(']');
        if (close == std::string_view::npos) {
            ignore(content, IgnoredReason::kOpenHeader);
            return;
        }
        const std::string_view name = trimmed(content.substr(1, close - 1));
        section = sectionFor(name);
        text.sectionList[section].headers.push_back({lineNumber, columnOf(content), columnOf(name)});
        const std::string_view rest = trimmed(content.substr(close + 1));
        if (!rest.empty()) ignore(rest, IgnoredReason::kBehindHeader);
    }

    void ignore(std::string_view part, IgnoredReason reason) {
        text.ignored.push_back({part, lineNumber, columnOf(part), reason});
    }

    std::uint32_t sectionFor(std::string_view name) {
        const std::uint32_t known = text.sectionNumber(name);
        if (known != kFree) return known;
        const std::uint32_t number = static_cast<std::uint32_t>(text.sectionList.size());
        text.sectionList.push_back({name, {}, {}});
        std::vector<std::uint32_t>& slots = text.sectionSlots;
        if (text.sectionList.size() * 2 <= slots.size()) {
            placeSection(number);
        } else {
            slots.assign(grownSize(slots.size()), kFree);
            for (std::uint32_t each = 0; each <= number; ++each)
                placeSection(each);
        }
        return number;
    }

    void placeSection(std::uint32_t number) {
        const std::size_t mask = text.sectionSlots.size() - 1;
        std::size_t place = hashOf(text.sectionList[number].name) & mask;
        while (text.sectionSlots[place] != kFree)
            place = (place + 1) & mask;
        text.sectionSlots[place] = number;
    }

    void addEntry(std::string_view key, std::string_view value) {
        SettingsEntry entry{key, value, lineNumber, columnOf(key), columnOf(value), false};
        if (section == kFree) {
            text.outside.push_back(entry);
            return;
        }
        if (isFull(entryCount, text.entrySlots.size())) growEntrySlots();
        std::vector<SettingsEntry>& entries = text.sectionList[section].entries;
        const std::size_t mask = text.entrySlots.size() - 1;
        const std::uint32_t hash = hashOf(section, key);
        std::size_t place = hash & mask;
        while (text.entrySlots[place].section != kFree) {
            const Slot slot = text.entrySlots[place];
            if (slot.hash == hash && slot.section == section && entries[slot.entry].key == key) {
                entry.repeated = true;
                break;
            }
            place = (place + 1) & mask;
        }
        if (!entry.repeated) {
            text.entrySlots[place] = {section, static_cast<std::uint32_t>(entries.size()), hash};
            ++entryCount;
        }
        entries.push_back(entry);
    }

    void growEntrySlots() {
        std::vector<Slot> old(grownSize(text.entrySlots.size()), Slot{kFree, 0, 0});
        old.swap(text.entrySlots);
        const std::size_t mask = text.entrySlots.size() - 1;
        for (const Slot slot : old) {
            if (slot.section == kFree) continue;
            std::size_t place = slot.hash & mask;
            while (text.entrySlots[place].section != kFree)
                place = (place + 1) & mask;
            text.entrySlots[place] = slot;
        }
    }

    std::uint32_t columnOf(std::string_view part) const {
        return static_cast<std::uint32_t>(part.data() - lineStart) + 1;
    }

    SettingsText& text;
    std::uint32_t section = kFree;  // the section of the current line; kFree before the first header
    std::size_t entryCount = 0;     // entries in the table, without repeated ones
    std::uint32_t lineNumber = 0;
    const char* lineStart = nullptr;
};

SettingsText::SettingsText() = default;
SettingsText::SettingsText(SettingsText&&) noexcept = default;
SettingsText& SettingsText::operator=(SettingsText&&) noexcept = default;
SettingsText::~SettingsText() = default;

SettingsText::SettingsText(std::string bytes) : buffer(std::make_unique<const std::string>(std::move(bytes))) {
    Reader(*this).run();
}

FileProblem SettingsText::load(const std::string& path, SettingsText& text) {
    std::string bytes;
    const FileProblem problem = readFileBytes(path, bytes);
    text = problem == FileProblem::kNone ? SettingsText(std::move(bytes)) : SettingsText();
    return problem;
}

std::string_view SettingsText::bytes() const {
    std::string_view all = buffer ? std::string_view(*buffer) : std::string_view();
    if (all.substr(0, kByteOrderMark.size()) == kByteOrderMark) all.remove_prefix(kByteOrderMark.size());
    return all;
}

const SettingsSection* SettingsText::findSection(std::string_view name) const {
    const std::uint32_t number = sectionNumber(name);
    return number == kFree ? nullptr : &sectionList[number];
}

const SettingsEntry* SettingsText::findEntry(std::string_view sectionName, std::string_view key) const {
    const std::uint32_t section = sectionNumber(sectionName);
    if (section == kFree || entrySlots.empty()) return nullptr;
    const std::vector<SettingsEntry>& entries = sectionList[section].entries;
    const std::size_t mask = entrySlots.size() - 1;
    const std::uint32_t hash = hashOf(section, key);
    for (std::size_t place = hash & mask; entrySlots[place].section != kFree; place = (place + 1) & mask) {
        const Slot slot = entrySlots[place];
        if (slot.hash == hash && slot.section == section && entries[slot.entry].key == key) return &entries[slot.entry];
    }
    return nullptr;
}

std::uint32_t SettingsText::sectionNumber(std::string_view name) const {
    if (sectionSlots.empty()) return kFree;
    const std::size_t mask = sectionSlots.size() - 1;
    std::size_t place = hashOf(name) & mask;
    while (sectionSlots[place] != kFree && sectionList[sectionSlots[place]].name != name)
        place = (place + 1) & mask;
    return sectionSlots[place];
}

}  // namespace standin
