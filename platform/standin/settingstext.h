#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "standin/filebytes.h"
#include "ttplatform/export.h"

namespace standin {

// Lines and columns count from 1. Columns count bytes from the start of the line, not counting a byte order mark. 32
// bits are enough for every file that load() accepts.

// One "key=value" line.
struct SettingsEntry {
    std::string_view key;
    std::string_view value;
    std::uint32_t line = 0;
    std::uint32_t keyColumn = 0;
    std::uint32_t valueColumn = 0;  // where the value starts, or would start if it were not empty
    bool repeated = false;          // an earlier entry of the section has the same key, so this one is never read
};

// One "[name]" line.
struct SettingsHeader {
    std::uint32_t line = 0;
    std::uint32_t column = 0;      // of the bracket
    std::uint32_t nameColumn = 0;  // where the name starts, or would start if it were not empty
};

// A section with the entries under all of its headers, in file order.
struct SettingsSection {
    std::string_view name;
    std::vector<SettingsHeader> headers;
    std::vector<SettingsEntry> entries;
};

// Why a line, or the rest of one, was ignored.
enum class IgnoredReason {
    kNoEqualSign,   // neither a header nor a "key=value" line
    kNoKey,         // nothing before the "="
    kOpenHeader,    // a "[" without a "]": the current section continues
    kBehindHeader,  // text after a header's "]"
};

struct IgnoredLine {
    std::string_view text;  // the ignored text, without surrounding blanks
    std::uint32_t line = 0;
    std::uint32_t column = 0;
    IgnoredReason reason = IgnoredReason::kNoEqualSign;
};

// An INI text, parsed in one pass over one owned buffer. All views point into that buffer and are valid for as long as
// this object lives. Queries are safe from any thread.
//
// The rules of the format:
//  - Lines end with LF or CR LF; a CR anywhere else, even as the last byte of the text, is an ordinary byte. The last
//    line needs no line end. A UTF-8 byte order mark at the start of the text is skipped.
//  - Blanks are spaces and tabs. They are trimmed around section names, keys and values, and kept inside them.
//  - A line whose first non-blank is ";" or "#" is a comment. Comments start nowhere else.
//  - A line whose first non-blank is "[" is a header, and its name ends at the first "]"; "[]" opens the section with
//    the empty name. A header without a "]" is ignored. Text after the "]" is ignored, but the header counts.
//  - Any other line is split at its first "="; a line with no "=", or with nothing before it, is ignored.
//  - There are no quotes, no escapes and no continued lines; letter case counts; a NUL is an ordinary byte.
//  - A section that appears again continues the earlier one. If a key is repeated, the first value counts.
//  - Entries before the first header belong to no section and cannot be looked up, not even by the empty name.
class TTPLATFORM_API SettingsText {
public:
    // The empty text: no sections.
    SettingsText();
    explicit SettingsText(std::string bytes);
    SettingsText(SettingsText&&) noexcept;
    SettingsText& operator=(SettingsText&&) noexcept;
    SettingsText(const SettingsText&) = delete;
    SettingsText& operator=(const SettingsText&) = delete;
    ~SettingsText();

    // Reads the file into text; on any problem text is left empty.
    static FileProblem load(const std::string& path, SettingsText& text);

    // The sections in the order of their first headers.
    const std::vector<SettingsSection>& sections() const { return sectionList; }
    // The entries before the first header, in file order.
    const std::vector<SettingsEntry>& entriesOutside() const { return outside; }
    // The ignored lines in file order, without comments and blank lines.
    const std::vector<IgnoredLine>& ignoredLines() const { return ignored; }
    // The whole text, without the byte order mark.
    std::string_view bytes() const;
    // Whether the text started with a byte order mark.
    bool hasByteOrderMark() const { return buffer != nullptr && bytes().size() < buffer->size(); }

    // The section with that name, or null.
    const SettingsSection* findSection(std::string_view name) const;
    // The first entry with that key, which is the one that counts, or null.
    const SettingsEntry* findEntry(std::string_view section, std::string_view key) const;

private:
    class Reader;

    // Open-addressing hash table of (section number, entry number) pairs. The names are in the lists and are compared
    // only when the hashes match.
    struct Slot {
        std::uint32_t section;
        std::uint32_t entry;
        std::uint32_t hash;
    };

    std::uint32_t sectionNumber(std::string_view name) const;

    std::unique_ptr<const std::string> buffer;  // on the heap, so that views stay valid after a move
    std::vector<SettingsSection> sectionList;
    std::vector<SettingsEntry> outside;
    std::vector<IgnoredLine> ignored;
    std::vector<std::uint32_t> sectionSlots;
    std::vector<Slot> entrySlots;
};

}  // namespace standin
