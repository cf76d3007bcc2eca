#pragma once

#include <string_view>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/text/splitting.h"

// Entry lists: how the value of a key is split, how an entry is parsed, and which of several entries counts. Each list
// is described once, beside the grammar of its entries; the readers and the tool walk it with that description.

namespace ttservice::internal {

// What an empty piece between two separators is.
enum class EmptyPieces {
    Count,        // an entry; an empty value is one empty entry
    CountInText,  // an entry, but an empty value has no entries
    Drop          // ignored
};

// Which entries count if several have the same name.
enum class Counting {
    All,    // all, in the order written
    First,  // the first
    Last,   // the last
    Union   // all, as a set: a repeated entry changes nothing
};

template <typename EntryType>
struct EntryList {
    using Entry = EntryType;

    const SettingKey& key;
    char separator;
    EmptyPieces empty;
    Counting counting;
    Entry (*read)(std::string_view piece);
};

// The entries of a list of plain texts.
constexpr std::string_view textEntry(std::string_view piece) {
    return piece;
}

// Passes each entry of the value to the sink. All texts of an entry are views into the value, so a caller can tell
// where each of them stands.
template <typename Entry, typename Sink>
void forEachEntry(const EntryList<Entry>& list, std::string_view value, Sink&& sink) {
    if (value.empty() && list.empty != EmptyPieces::Count) return;
    splitKeepEmpty(value, list.separator, [&](std::string_view piece) {
        if (!piece.empty() || list.empty != EmptyPieces::Drop) sink(list.read(piece));
    });
}

}  // namespace ttservice::internal
