// Edits of pieces: suggests which pieces of a value to change if an answer depends on several of them.
// Entry points: suggestPieces(), wholeValue(), withPieces().
// Covered by explaining/whynot_test.cpp and explaining/whynotpairs_test.cpp in tests/tools/ttconfig/.

#include "ttconfig/edits/pieceedits.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/edits/fieldtexts.h"

namespace ttconfig {

namespace {

using Pieces = std::vector<std::string_view>;
using Texts = std::vector<std::string>;

// Up to kMostLookedAt pieces, every way to keep pieces at both ends is tried; beyond that, only those that keep the
// most. Values of more than kMostPieces pieces are not split. At most kMostTried values are suggested.
constexpr std::size_t kMostLookedAt = 24;
constexpr std::size_t kMostPieces = 1000000;
constexpr std::size_t kMostTried = 16;

// How many pieces stay at the front and at the back of the value.
struct Kept {
    std::size_t front = 0;
    std::size_t back = 0;
};

class PieceEdits {
public:
    PieceEdits(std::string_view text, const WantedPieces& wantedPieces)
        : value(text),
          wanted(wantedPieces),
          isTooLong(count(text, wantedPieces.separator) > kMostPieces),
          pieces(isTooLong || (text.empty() && !wantedPieces.emptyIsOnePiece)
                     ? Pieces()
                     : ttservice::internal::pieces(text, wantedPieces.separator)) {}

    bool saysAll() const {
        const auto absent = isTooLong ? std::nullopt : missing({pieces.size(), 0});
        return absent && absent->empty();
    }
    // The suggested values, starting with the one that differs least from the present value.
    Texts values(bool keepsOthers) const;

private:
    static std::size_t count(std::string_view text, char separator) {
        return static_cast<std::size_t>(std::count(text.begin(), text.end(), separator)) + 1;
    }

    std::vector<Kept> waysToKeep() const;
    void addWaysOfLongValue(std::vector<Kept>& ways) const;
    std::optional<std::vector<std::size_t>> missing(const Kept& kept) const;
    std::optional<std::vector<std::size_t>> missingInOrder(const Kept& kept) const;
    std::optional<std::vector<std::size_t>> missingByName(const Kept& kept) const;
    std::optional<std::size_t> named(std::string_view piece) const;
    Texts between(const Kept& kept, const std::vector<std::size_t>& missing, bool keepsOthers, bool writesAnew) const;
    std::string_view oldOf(std::size_t number, std::size_t place, const Kept& kept) const;
    std::string valueOf(const Kept& kept, const Texts& between) const;

    std::string_view value;
    const WantedPieces& wanted;
    bool isTooLong;
    Pieces pieces;
};

// If an empty value means no pieces, a single empty piece is written as a separator.
std::string asValue(const WantedPieces& wanted, std::size_t count, std::string text) {
    if (count == 1 && text.empty() && !wanted.emptyIsOnePiece) text = wanted.separator;
    return text;
}

std::vector<Kept> PieceEdits::waysToKeep() const {
    std::vector<Kept> ways;
    if (pieces.size() > kMostLookedAt) {
        addWaysOfLongValue(ways);
        return ways;
    }
    // Ways that keep more at the front come first, so new pieces go to the end if they may go anywhere.
    for (std::size_t ahead = pieces.size() + 1; ahead > 0; --ahead) {
        for (std::size_t back = 0; ahead - 1 + back <= pieces.size(); ++back)
            ways.push_back({ahead - 1, back});
    }
    return ways;
}

// Keeps as much as possible at the front and then at the back; the reverse; everything, so that new pieces go to the
// back or to the front; and nothing.
void PieceEdits::addWaysOfLongValue(std::vector<Kept>& ways) const {
    const auto most = [&](const auto& kept) {
        std::size_t can = 0;
        for (std::size_t step = pieces.size() + 1; step > 0;) {
            step /= 2;
            while (can + step <= pieces.size() && step > 0 && missing(kept(can + step)))
                can += step;
        }
        return can;
    };
    const std::size_t front = most([](std::size_t many) { return Kept{many, 0}; });
    const std::size_t back = most([](std::size_t many) { return Kept{0, many}; });
    const std::size_t behind = most([&](std::size_t many) {
        return Kept{front, std::min(many, pieces.size() - front)};
    });
    const std::size_t ahead = most([&](std::size_t many) { return Kept{std::min(many, pieces.size() - back), back}; });
    ways = {{front, std::min(behind, pieces.size() - front)},
            {std::min(ahead, pieces.size() - back), back},
            {pieces.size(), 0},
            {0, pieces.size()},
            {0, 0}};
}

std::optional<std::vector<std::size_t>> PieceEdits::missing(const Kept& kept) const {
    return wanted.order == WantedPieces::Order::AsWritten ? missingInOrder(kept) : missingByName(kept);
}

std::optional<std::vector<std::size_t>> PieceEdits::missingInOrder(const Kept& kept) const {
    std::size_t first = 0;
    for (std::size_t i = 0; i < kept.front; ++i) {
        if (!wanted.counts(pieces[i])) continue;
        if (first == wanted.count || !wanted.says(first, pieces[i])) return std::nullopt;
        ++first;
    }
    std::size_t last = wanted.count;
    for (std::size_t i = pieces.size(); i > pieces.size() - kept.back; --i) {
        if (!wanted.counts(pieces[i - 1])) continue;
        if (last == first || !wanted.says(last - 1, pieces[i - 1])) return std::nullopt;
        --last;
    }
    std::vector<std::size_t> missing;
    for (std::size_t i = first; i < last; ++i)
        missing.push_back(i);
    return missing;
}

std::optional<std::vector<std::size_t>> PieceEdits::missingByName(const Kept& kept) const {
    enum class State { Missing, Said, Overruled };
    std::vector<State> states(wanted.count, State::Missing);
    for (std::size_t i = pieces.size(); i > 0; --i) {
        const bool isBehind = i > pieces.size() - kept.back;
        if ((!isBehind && i > kept.front) || !wanted.counts(pieces[i - 1])) continue;
        const auto number = named(pieces[i - 1]);
        if (!number) return std::nullopt;
        State& state = states[*number];
        if (state != State::Missing) continue;
        if (wanted.says(*number, pieces[i - 1])) {
            state = State::Said;
        } else if (isBehind) {
            return std::nullopt;
        } else {
            state = State::Overruled;  // by a piece inserted after it
        }
    }
    std::vector<std::size_t> missing;
    for (std::size_t i = 0; i < states.size(); ++i) {
        if (states[i] != State::Said) missing.push_back(i);
    }
    return missing;
}

std::optional<std::size_t> PieceEdits::named(std::string_view piece) const {
    for (std::size_t i = 0; i < wanted.count; ++i) {
        if (wanted.names(i, piece)) return i;
    }
    return std::nullopt;
}

// The piece that the wanted one replaces: the one with the same name, or else the one in its position.
std::string_view PieceEdits::oldOf(std::size_t number, std::size_t place, const Kept& kept) const {
    const std::size_t end = pieces.size() - kept.back;
    for (std::size_t i = kept.front; wanted.names && i < end; ++i) {
        if (wanted.counts(pieces[i]) && wanted.names(number, pieces[i])) return pieces[i];
    }
    return kept.front + place < end ? pieces[kept.front + place] : std::string_view();
}

Texts PieceEdits::between(const Kept& kept, const std::vector<std::size_t>& missing, bool keepsOthers,
                          bool writesAnew) const {
    Texts texts;
    std::size_t next = 0;
    const auto putIn = [&] {
        const std::string_view old = writesAnew ? std::string_view() : oldOf(missing[next], next, kept);
        texts.push_back(wanted.written(missing[next], old));
        ++next;
    };
    for (std::size_t i = kept.front; i < pieces.size() - kept.back; ++i) {
        if (!wanted.counts(pieces[i])) {
            if (keepsOthers) texts.emplace_back(pieces[i]);
        } else if (next < missing.size()) {
            putIn();
        }
    }
    while (next < missing.size())
        putIn();
    return texts;
}

// Copies the kept pieces unchanged.
std::string PieceEdits::valueOf(const Kept& kept, const Texts& between) const {
    std::string text;
    std::size_t count = 0;
    const auto put = [&](std::string_view piece) {
        if (count++ > 0) text += wanted.separator;
        text += piece;
    };
    const auto offsetOf = [this](std::string_view piece) {
        return static_cast<std::size_t>(piece.data() - value.data());
    };
    if (kept.front > 0) {
        const std::string_view last = pieces[kept.front - 1];
        put(value.substr(0, offsetOf(last) + last.size()));
    }
    for (const std::string& piece : between)
        put(piece);
    if (kept.back > 0) put(value.substr(offsetOf(pieces[pieces.size() - kept.back])));
    return asValue(wanted, count, std::move(text));
}

Texts PieceEdits::values(bool keepsOthers) const {
    Texts values;
    // Appending is enough for LastOfName: the last piece of a name counts.
    if (isTooLong) return {(keepsOthers ? std::string(value) + wanted.separator : "") + wholeValue(wanted)};
    for (const Kept& kept : waysToKeep()) {
        const auto absent = missing(kept);
        if (!absent) continue;
        values.push_back(valueOf(kept, between(kept, *absent, keepsOthers, false)));
        if (pieces.size() > kMostLookedAt || absent->empty()) continue;
        values.push_back(valueOf(kept, between(kept, *absent, keepsOthers, true)));
    }
    // If two values differ by the same number of bytes, the longer one comes first because it removes less.
    std::stable_sort(values.begin(), values.end(), [this](const std::string& left, const std::string& right) {
        return std::pair(differingBytes(value, left), right.size()) <
               std::pair(differingBytes(value, right), left.size());
    });
    values.erase(std::unique(values.begin(), values.end()), values.end());
    values.resize(std::min(values.size(), kMostTried));
    return values;
}

}  // namespace

WantedPieces wantedTexts(std::vector<std::string> texts, char separator, WantedPieces::Order order) {
    WantedPieces wanted;
    wanted.separator = separator;
    wanted.order = order;
    wanted.count = texts.size();
    wanted.counts = [](std::string_view) { return true; };
    wanted.says = [texts](std::size_t number, std::string_view piece) { return piece == texts[number]; };
    if (order == WantedPieces::Order::LastOfName) wanted.names = wanted.says;
    wanted.written = [texts = std::move(texts)](std::size_t number, std::string_view) { return texts[number]; };
    return wanted;
}

std::string wholeValue(const WantedPieces& wanted) {
    std::string text;
    for (std::size_t i = 0; i < wanted.count; ++i) {
        if (i > 0) text += wanted.separator;
        text += wanted.written(i, {});
    }
    return asValue(wanted, wanted.count, std::move(text));
}

std::string withPieces(std::string_view value, char separator,
                       const std::function<std::optional<std::string>(std::string_view piece)>& become) {
    std::string all;
    bool isFirst = true;
    ttservice::internal::splitKeepEmpty(value, separator, [&](std::string_view piece) {
        const auto text = become(piece);
        if (!text) return;
        if (!isFirst) all += separator;
        all += *text;
        isFirst = false;
    });
    return all;
}

bool saysAll(const WantedPieces& wanted, std::string_view value) {
    return PieceEdits(value, wanted).saysAll();
}

void suggestPieces(const standin::SettingsEntry& entry, std::string_view value, const WantedPieces& wanted,
                   Edits& edits) {
    const PieceEdits made(value, wanted);
    edits.reaching(wanted.reach);
    for (const std::string& text : made.values(true))
        edits.replacePiece(entry, value, text);
    if (!wanted.others.empty()) edits.reaching(wanted.others);
    for (const std::string& text : made.values(false))
        edits.replacePiece(entry, value, text);
}

void suggestPieces(const standin::SettingsText& text, std::string_view section, std::string_view key,
                   const WantedPieces& wanted, Edits& edits) {
    const standin::SettingsEntry* entry = text.findEntry(section, key);
    if (entry == nullptr) {
        edits.addLast(section, key, wholeValue(wanted));
        return;
    }
    suggestPieces(*entry, entry->value, wanted, edits);
    edits.addFirst(section, key, wholeValue(wanted));
    edits.removeLine(*entry);
}

}  // namespace ttconfig
