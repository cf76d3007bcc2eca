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

// One change of a settings text: some bytes of it replaced by others.
struct Edit {
    enum class Kind { ReplacedLine, AddedLine, RemovedLine };

    Kind kind = Kind::ReplacedLine;
    std::uint32_t line = 0;  // of the line that is replaced or removed; of an added line the one that it becomes
    std::size_t offset = 0;  // into the text's bytes
    std::size_t length = 0;
    std::string replacement;
    std::string_view reach;  // what else it changes, in words; empty when it is about the question alone

    std::size_t changedBytes() const { return length + replacement.size(); }
};

inline constexpr std::size_t kEditKinds = 3;

// The text with the edit carried out.
std::string editedText(const standin::SettingsText& text, const Edit& edit);

// The lines that it takes out and puts in, without their ends; of very long lines what stands around the change.
struct EditLines {
    std::vector<std::string> before;
    std::vector<std::string> after;
};
EditLines linesOf(const standin::SettingsText& text, const Edit& edit);

// The value with a piece appended.
std::string withPiece(std::string_view value, char separator, std::string_view piece);

// The pieces with a separator between each two.
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

// Collects edits of one line each that might change an answer, of each kind up to a number that nobody wants to see
// tried out. Nothing is tried out here.
class Edits {
public:
    explicit Edits(const standin::SettingsText& settingsText) : text(settingsText) {}

    // The value of the entry; of the key, whose line is added where there is none, and is tried out in front of one
    // that is there as well: of a repeated key the first value counts.
    void setValue(const standin::SettingsEntry& entry, std::string_view value);
    void setValue(const ttservice::internal::SettingKey& key, std::string_view value);
    void setValue(std::string_view section, std::string_view key, std::string_view value);

    // Appends a piece to the key's value.
    void addPiece(const ttservice::internal::SettingKey& key, char separator, std::string_view piece);

    // A piece of the entry's value.
    void replacePiece(const standin::SettingsEntry& entry, std::string_view piece, std::string_view by);

    void setKey(const standin::SettingsEntry& entry, std::string_view key);
    void removeLine(const standin::SettingsEntry& entry);
    void removeLine(const ttservice::internal::SettingKey& key);

    // A line "key=value" in front of the section's other lines, or behind them.
    void addFirst(std::string_view section, std::string_view key, std::string_view value);
    void addLast(std::string_view section, std::string_view key, std::string_view value);

    // What the edits that follow change beside the answer. A literal: it is not copied.
    void reaching(std::string_view what) { reach = what; }

    // Those that change the fewest bytes first, and of these the ones that change nothing beside the answer.
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
