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

// What the pieces of a value have to say for an answer that is made of several of them.
struct WantedPieces {
    enum class Order {
        AsWritten,  // the pieces that count say what is wanted one after the other
        LastOfName  // of pieces of one name the last counts, and their order plays no part
    };

    char separator = ',';
    Order order = Order::AsWritten;
    bool emptyIsOnePiece = false;  // whether an empty value has an empty piece, or none
    std::size_t count = 0;         // of what is wanted
    // Whether the piece has a say in the answer.
    std::function<bool(std::string_view piece)> counts;
    // Whether the piece has the name of what is wanted; LastOfName asks it.
    std::function<bool(std::size_t wanted, std::string_view piece)> names;
    std::function<bool(std::size_t wanted, std::string_view piece)> says;
    // A piece that says it, written much as the old one; there may be none, which is not an empty one.
    std::function<std::string(std::size_t wanted, std::string_view old)> written;
    std::string_view reach{};   // what else any of these edits changes
    std::string_view others{};  // and one that takes out pieces that do not count; empty when they say nothing
};

// Pieces that have to be exactly these texts.
WantedPieces wantedTexts(std::vector<std::string> texts, char separator, WantedPieces::Order order);

// The value that says it all, written anew.
std::string wholeValue(const WantedPieces& wanted);

// Whether the value says it all as it is, and nothing else.
bool saysAll(const WantedPieces& wanted, std::string_view value);

// The value with what each of its pieces becomes; pieces that become nothing are left out.
std::string withPieces(std::string_view value, char separator,
                       const std::function<std::optional<std::string>(std::string_view piece)>& become);

// Edits of the piece of the entry's value that holds such pieces: some of them, next to each other, taken out, put in
// or put in each other's place. Those that change the fewest bytes are entered.
void suggestPieces(const standin::SettingsEntry& entry, std::string_view value, const WantedPieces& wanted,
                   Edits& edits);

// The same for the value of a key; its line is added where there is none, and a line in front of it is tried as well.
void suggestPieces(const standin::SettingsText& text, std::string_view section, std::string_view key,
                   const WantedPieces& wanted, Edits& edits);
inline void suggestPieces(const standin::SettingsText& text, const ttservice::internal::SettingKey& key,
                          const WantedPieces& wanted, Edits& edits) {
    suggestPieces(text, key.section, key.key, wanted, edits);
}

}  // namespace ttconfig
