#pragma once

#include <standin/settingstext.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ttconfig/edits/edits.h"

namespace ttconfig {

// The pieces that a value must have to give a wanted answer, if that answer depends on several pieces.
struct WantedPieces {
    enum class Order {
        AsWritten,  // the pieces that count give the wanted items in order
        LastOfName  // the last piece of a name counts; otherwise order does not matter
    };

    char separator = ',';
    Order order = Order::AsWritten;
    bool emptyIsOnePiece = false;  // otherwise an empty value has no pieces
    std::size_t count = 0;         // number of wanted items
    // Whether the piece affects the answer.
    std::function<bool(std::string_view piece)> counts;
    // Whether the piece has the name of the wanted item; needed for LastOfName.
    std::function<bool(std::size_t wanted, std::string_view piece)> names;
    std::function<bool(std::size_t wanted, std::string_view piece)> says;
    // A piece that gives the wanted item, similar to the old piece. If there is no old piece, `old` is a null view.
    std::function<std::string(std::size_t wanted, std::string_view old)> written;
    std::string_view reach{};   // what else each of these edits affects
    std::string_view others{};  // what else is affected if pieces that do not count are removed; empty if nothing
};

// Pieces that must be exactly these texts.
WantedPieces wantedTexts(std::vector<std::string> texts, char separator, WantedPieces::Order order);

// A value written from scratch that has all the wanted items.
std::string wholeValue(const WantedPieces& wanted);

// Whether the value already gives exactly the wanted items.
bool saysAll(const WantedPieces& wanted, std::string_view value);

// The value with each piece replaced by what `become` returns for it, or removed if that is nullopt.
std::string withPieces(std::string_view value, char separator,
                       const std::function<std::optional<std::string>(std::string_view piece)>& become);

// Suggests edits of `value`, which is the entry's value or a part of it. Each edit inserts, removes or replaces
// adjacent pieces. Only the edits that change the fewest bytes are added.
void suggestPieces(const standin::SettingsEntry& entry, std::string_view value, const WantedPieces& wanted,
                   Edits& edits);

// The same for the value of a key. A missing key gets a new line; for an existing key, a new line at the front of the
// section and the removal of the present line are suggested as well.
void suggestPieces(const standin::SettingsText& text, std::string_view section, std::string_view key,
                   const WantedPieces& wanted, Edits& edits);
inline void suggestPieces(const standin::SettingsText& text, const ttservice::internal::SettingKey& key,
                          const WantedPieces& wanted, Edits& edits) {
    suggestPieces(text, key.section, key.key, wanted, edits);
}

}  // namespace ttconfig
