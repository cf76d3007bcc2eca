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

// Lines and columns count from 1; columns count bytes from the start of the line, a byte order mark left out. They are
// held in 32 bits, which any file fits that load() takes.

// One "key=value" line.
struct SettingsEntry {
    std::string_view key;
    std::string_view value;
    std::uint32_t line = 0;
    std::uint32_t keyColumn = 0;
    std::uint32_t valueColumn = 0;  // where the value stands, or would stand when it is empty
    bool repeated = false;          // an earlier entry of the same section has this key: this one is never read
};

// One "[name]" line.
struct SettingsHeader {
    std::uint32_t line = 0;
    std::uint32_t column = 0;      // of the bracket
    std::uint32_t nameColumn = 0;  // where the name stands, or would stand when it is empty
};

// A section with everything under all of its headers, in file order.
struct SettingsSection {
    std::string_view name;
    std::vector<SettingsHeader> headers;
    std::vector<SettingsEntry> entries;
};

// Why a line, or the rest of one, was passed over.
enum class IgnoredReason {
    kNoEqualSign,   // neither a header nor a "key=value" line
    kNoKey,         // nothing in front of the "="
    kOpenHeader,    // a "[" and no "]" behind it: the section before goes on
    kBehindHeader,  // the rest of a line behind a header's "]"
};

struct IgnoredLine {
    std::string_view text;  // what was ignored, without the blanks around it
    std::uint32_t line = 0;
    std::uint32_t column = 0;
    IgnoredReason reason = IgnoredReason::kNoEqualSign;
};

// An INI text, read in one pass over one owned buffer; every text handed out points into that buffer and is good for as
// long as this object lives. Asking is safe from any thread.
//
// The rules of the format:
//  - Lines end with LF or CR LF; a CR anywhere else, also as the very last byte of the text, is an ordinary byte. The
//    last line needs no end. A UTF-8 byte order mark at the start of the text is skipped.
//  - Blanks are the space and the tab. They are cut off around section names, keys and values, and kept inside them.
//  - A line whose first non-blank is ";" or "#" is a comment. Nowhere else does either start one.
//  - A line whose first non-blank is "[" is a header and its name ends at the first "]"; "[]" opens the section with
//    the empty name. Without a "]" the line is ignored. Text behind the "]" is ignored, the header counts.
//  - Any other line is split at its first "="; without one, or with nothing in front of it, it is ignored.
//  - There are no quotes, no escapes, no continued lines; letter case counts; a NUL is a byte like any other.
//  - A section that appears again continues the earlier one. Of a repeated key the first value counts.
//  - Entries in front of the first header belong to no section and cannot be looked up, not by the empty name either.
class TTPLATFORM_API SettingsText {
public:
    // The empty text: no sections.
    SettingsText();
    // Reads the text.
    explicit SettingsText(std::string bytes);
    SettingsText(SettingsText&&) noexcept;
    SettingsText& operator=(SettingsText&&) noexcept;
    SettingsText(const SettingsText&) = delete;
    SettingsText& operator=(const SettingsText&) = delete;
    ~SettingsText();

    // Reads the file into text; on any problem the text is left empty.
    static FileProblem load(const std::string& path, SettingsText& text);

    // The sections in the order of their first headers.
    const std::vector<SettingsSection>& sections() const { return sectionList; }
    // The entries in front of the first header, in file order.
    const std::vector<SettingsEntry>& entriesOutside() const { return outside; }
    // The lines that were passed over, in file order; comments and blank lines are not among them.
    const std::vector<IgnoredLine>& ignoredLines() const { return ignored; }
    // The whole text, without the byte order mark.
    std::string_view bytes() const;
    // Whether a byte order mark stood in front of it.
    bool hasByteOrderMark() const { return buffer != nullptr && bytes().size() < buffer->size(); }

    // The section of that name; null when there is none.
    const SettingsSection* findSection(std::string_view name) const;
    // The entry of that key that counts, the first; null when there is none.
    const SettingsEntry* findEntry(std::string_view section, std::string_view key) const;

private:
    class Reader;

    // Open-addressing hash table of (section number, entry number) pairs; the names themselves are in the lists, and
    // are only looked at where the hash says so.
    struct Slot {
        std::uint32_t section;
        std::uint32_t entry;
        std::uint32_t hash;
    };

    std::uint32_t sectionNumber(std::string_view name) const;

    std::unique_ptr<const std::string> buffer;  // on the heap, so that a move leaves the views good
    std::vector<SettingsSection> sectionList;
    std::vector<SettingsEntry> outside;
    std::vector<IgnoredLine> ignored;
    std::vector<std::uint32_t> sectionSlots;
    std::vector<Slot> entrySlots;
};

}  // namespace standin
