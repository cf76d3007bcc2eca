#pragma once

#include <standin/settingstext.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/text/splitting.h"

namespace ttconfig {

// One change of a settings text: replaces a run of bytes with other bytes.
struct Edit {
    enum class Kind { ReplacedLine, AddedLine, RemovedLine };

    Kind kind = Kind::ReplacedLine;
    std::uint32_t line = 0;  // the replaced or removed line; for an added line, the number it gets
    std::size_t offset = 0;  // into the text's bytes
    std::size_t length = 0;
    std::string replacement;
    std::string_view reach;  // what else the edit affects, in words; empty if only this question

    std::size_t changedBytes() const { return length + replacement.size(); }
};

inline constexpr std::size_t kEditKinds = 3;

// The text after the edit.
std::string editedText(const standin::SettingsText& text, const Edit& edit);

// The lines that an edit removes and adds, without line breaks. Very long lines are cut to the part around the change.
struct EditLines {
    std::vector<std::string> before;
    std::vector<std::string> after;
};
EditLines linesOf(const standin::SettingsText& text, const Edit& edit);

// The value with a piece appended.
std::string withPiece(std::string_view value, char separator, std::string_view piece);

// The pieces, joined by the separator.
template <typename Text>
std::string joined(const std::vector<Text>& pieces, char separator) {
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        text.append(i == 0 ? 0 : 1, separator).append(pieces[i]);
    return text;
}

// The value without the pieces for which the predicate is true.
template <typename Predicate>
std::string withoutPieces(std::string_view value, char separator, Predicate&& isOut) {
    std::vector<std::string_view> kept;
    ttservice::internal::splitKeepEmpty(value, separator, [&](std::string_view piece) {
        if (!isOut(piece)) kept.push_back(piece);
    });
    return joined(kept, separator);
}

// Collects edits of single lines that might change an answer, up to a fixed number of each kind. Whether they do is not
// checked here.
class Edits {
public:
    explicit Edits(const standin::SettingsText& settingsText) : text(settingsText) {}

    // Sets the value of an entry or of a key. A missing key gets a new line. For an existing key, a new line at the
    // front of the section is suggested as well, because the first value of a repeated key counts.
    void setValue(const standin::SettingsEntry& entry, std::string_view value);
    void setValue(const ttservice::internal::SettingKey& key, std::string_view value);
    void setValue(std::string_view section, std::string_view key, std::string_view value);

    // Appends a piece to the key's value.
    void addPiece(const ttservice::internal::SettingKey& key, char separator, std::string_view piece);

    // Replaces a piece of the entry's value.
    void replacePiece(const standin::SettingsEntry& entry, std::string_view piece, std::string_view by);

    void setKey(const standin::SettingsEntry& entry, std::string_view key);
    void removeLine(const standin::SettingsEntry& entry);
    void removeLine(const ttservice::internal::SettingKey& key);

    // Adds a line "key=value" before or after the other lines of the section.
    void addFirst(std::string_view section, std::string_view key, std::string_view value);
    void addLast(std::string_view section, std::string_view key, std::string_view value);

    // Sets what all following edits affect besides this question, in words. Pass a literal: the text is not copied.
    void reaching(std::string_view what) { reach = what; }

    // Edits that change fewer bytes come first; among equals, those that affect only this question.
    std::vector<Edit> inOrder() &&;

private:
    void add(Edit draft);
    void replace(std::uint32_t line, std::string_view old, std::string_view now);
    void addLine(std::string_view section, std::string_view line, bool isFirst);
    void addSection(std::string_view section, std::string_view line);
    void addBehind(std::uint32_t line, std::string_view view, std::string_view added);

    const standin::SettingsText& text;
    std::string_view reach;
    std::array<std::size_t, kEditKinds> draftsLeft{200, 200, 200};
    std::vector<Edit> drafts;
};

}  // namespace ttconfig
