// Edits: collects possible changes of single lines, applies one to a settings text, and shows the lines it changes.
// Entry points: Edits, editedText(), linesOf().
// Covered by tests/tools/ttconfig/explaining/whynot_test.cpp.

#include "ttconfig/edits/edits.h"

#include <algorithm>
#include <utility>

#include "ttconfig/settings/place.h"

namespace ttconfig {

namespace {

using standin::SettingsEntry;
using standin::SettingsSection;
using standin::SettingsText;

// Of a very long line, about this many bytes are shown on each side of the change.
constexpr std::size_t kMostShown = 2000;

std::size_t offsetOf(const SettingsText& text, std::string_view view) {
    return static_cast<std::size_t>(view.data() - text.bytes().data());
}

std::size_t lineStart(std::string_view bytes, std::size_t at) {
    const std::size_t end = at == 0 ? std::string_view::npos : bytes.rfind('\n', at - 1);
    return end == std::string_view::npos ? 0 : end + 1;
}

// The start of the next line, or the end of the bytes.
std::size_t nextLine(std::string_view bytes, std::size_t at) {
    const std::size_t end = bytes.find('\n', at);
    return end == std::string_view::npos ? bytes.size() : end + 1;
}

bool endsInCrLf(std::string_view line) {
    return line.size() >= 2 && line.substr(line.size() - 2) == "\r\n";
}

std::string keyLine(std::string_view key, std::string_view value) {
    return std::string(key).append("=").append(value);
}

std::string_view withoutEnd(std::string_view line) {
    if (!line.empty() && line.back() == '\n') line.remove_suffix(1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    return line;
}

// The line, or only the part around the changed bytes if it is very long.
std::string shownLine(std::string_view line, std::size_t changedAt, std::size_t changedLength) {
    line = withoutEnd(line);
    if (line.size() <= 2 * kMostShown + changedLength || changedAt > line.size()) {
        return std::string(line.substr(0, 4 * kMostShown));
    }
    const std::size_t from = changedAt > kMostShown ? changedAt - kMostShown : 0;
    const std::size_t to = std::min(line.size(), changedAt + std::min(changedLength, kMostShown) + kMostShown);
    return (from > 0 ? "..." : "") + std::string(line.substr(from, to - from)) + (to < line.size() ? "..." : "");
}

// The lines of an added text, which may start or end with a line break.
std::vector<std::string> addedLines(std::string_view added) {
    std::vector<std::string> lines;
    while (!added.empty()) {
        const std::size_t next = nextLine(added, 0);
        const std::string_view line = withoutEnd(added.substr(0, next));
        if (!line.empty()) lines.push_back(shownLine(line, 0, 0));
        added.remove_prefix(next);
    }
    return lines;
}

}  // namespace

std::string withPiece(std::string_view value, char separator, std::string_view piece) {
    return std::string(value).append(value.empty() ? 0 : 1, separator).append(piece);
}

std::string editedText(const SettingsText& text, const Edit& edit) {
    const std::string_view bytes = text.bytes();
    std::string edited;
    edited.reserve(bytes.size() + edit.replacement.size());
    edited.append(bytes.substr(0, edit.offset))
        .append(edit.replacement)
        .append(bytes.substr(edit.offset + edit.length));
    return edited;
}

EditLines linesOf(const SettingsText& text, const Edit& edit) {
    const std::string_view bytes = text.bytes();
    if (edit.kind == Edit::Kind::AddedLine) return {{}, addedLines(edit.replacement)};
    const std::size_t start = lineStart(bytes, edit.offset);
    const std::string_view old = bytes.substr(start, nextLine(bytes, edit.offset) - start);
    const std::size_t at = edit.offset - start;
    EditLines lines{{shownLine(old, at, edit.length)}, {}};
    if (edit.kind == Edit::Kind::RemovedLine) return lines;
    const std::string now =
        std::string(old.substr(0, at)).append(edit.replacement).append(old.substr(at + edit.length));
    lines.after.push_back(shownLine(now, at, edit.replacement.size()));
    return lines;
}

void Edits::setValue(const SettingsEntry& entry, std::string_view value) {
    replace(entry.line, entry.value, value);
}

void Edits::setValue(const ttservice::internal::SettingKey& key, std::string_view value) {
    setValue(key.section, key.key, value);
}

void Edits::setValue(std::string_view section, std::string_view key, std::string_view value) {
    if (const SettingsEntry* entry = text.findEntry(section, key)) {
        setValue(*entry, value);
        addFirst(section, key, value);
    } else {
        addLast(section, key, value);
    }
}

void Edits::addPiece(const ttservice::internal::SettingKey& key, char separator, std::string_view piece) {
    const SettingsEntry* entry = text.findEntry(key.section, key.key);
    setValue(key, withPiece(entry == nullptr ? std::string_view() : entry->value, separator, piece));
}

void Edits::replacePiece(const SettingsEntry& entry, std::string_view piece, std::string_view by) {
    replace(entry.line, piece, by);
}

void Edits::setKey(const SettingsEntry& entry, std::string_view key) {
    replace(entry.line, entry.key, key);
}

void Edits::removeLine(const SettingsEntry& entry) {
    const std::string_view bytes = text.bytes();
    const std::size_t at = offsetOf(text, entry.key);
    const std::size_t start = lineStart(bytes, at);
    add({Edit::Kind::RemovedLine, entry.line, start, nextLine(bytes, at) - start, {}, reach});
}

void Edits::removeLine(const ttservice::internal::SettingKey& key) {
    if (const SettingsEntry* entry = text.findEntry(key.section, key.key)) removeLine(*entry);
}

void Edits::addFirst(std::string_view section, std::string_view key, std::string_view value) {
    addLine(section, keyLine(key, value), true);
}

void Edits::addLast(std::string_view section, std::string_view key, std::string_view value) {
    addLine(section, keyLine(key, value), false);
}

std::vector<Edit> Edits::inOrder() && {
    std::stable_sort(drafts.begin(), drafts.end(), [](const Edit& left, const Edit& right) {
        return std::pair(left.changedBytes(), !left.reach.empty()) <
               std::pair(right.changedBytes(), !right.reach.empty());
    });
    return std::move(drafts);
}

void Edits::add(Edit draft) {
    std::size_t& left = draftsLeft[static_cast<std::size_t>(draft.kind)];
    if (left == 0) return;
    --left;
    drafts.push_back(std::move(draft));
}

// Replaces only the bytes that differ: a common start and a common end stay.
void Edits::replace(std::uint32_t line, std::string_view old, std::string_view now) {
    // A line break inside a value would split the line in two.
    if (old == now || now.find('\n') != std::string_view::npos) return;
    std::size_t offset = offsetOf(text, old);
    while (!old.empty() && !now.empty() && old.front() == now.front()) {
        old.remove_prefix(1);
        now.remove_prefix(1);
        ++offset;
    }
    while (!old.empty() && !now.empty() && old.back() == now.back()) {
        old.remove_suffix(1);
        now.remove_suffix(1);
    }
    add({Edit::Kind::ReplacedLine, line, offset, old.size(), std::string(now), reach});
}

void Edits::addLine(std::string_view section, std::string_view line, bool isFirst) {
    if (line.find('\n') != std::string_view::npos || section.find('\n') != std::string_view::npos) return;
    const SettingsSection* found = text.findSection(section);
    if (found == nullptr) {
        addSection(section, line);
    } else if (isFirst || found->entries.empty()) {
        addBehind(found->headers.front().line, found->name, line);
    } else {
        addBehind(found->entries.back().line, found->entries.back().key, line);
    }
}

void Edits::addSection(std::string_view section, std::string_view line) {
    const std::string_view bytes = text.bytes();
    const std::size_t start = lineStart(bytes, bytes.size());
    const std::string_view lastLine = bytes.substr(lineStart(bytes, start == 0 ? 0 : start - 1));
    const std::string end = endsInCrLf(lastLine) ? "\r\n" : "\n";
    const bool isOpen = start < bytes.size();
    const std::string added =
        (isOpen ? end : std::string()) + "[" + std::string(section) + "]" + end + std::string(line) + end;
    const auto lines = static_cast<std::uint32_t>(std::count(bytes.begin(), bytes.end(), '\n')) + (isOpen ? 1U : 0U);
    add({Edit::Kind::AddedLine, lines + 1, bytes.size(), 0, added, reach});
}

void Edits::addBehind(std::uint32_t line, std::string_view view, std::string_view added) {
    const std::string_view bytes = text.bytes();
    const std::size_t at = nextLine(bytes, offsetOf(text, view));
    const std::size_t start = lineStart(bytes, offsetOf(text, view));
    const std::string_view before = bytes.substr(start, at - start);
    const std::string end = endsInCrLf(before) ? "\r\n" : "\n";
    const bool isOpen = before.empty() || before.back() != '\n';
    add({Edit::Kind::AddedLine, line + 1, at, 0, isOpen ? end + std::string(added) : std::string(added) + end, reach});
}

}  // namespace ttconfig
