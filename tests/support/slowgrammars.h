#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include <boost/algorithm/string.hpp>
#include <boost/lexical_cast.hpp>

// Slow and obvious readers of the value grammars, as oracles for the fast ones: they copy texts and convert strict
// numbers with Boost, loose ones with the C library.

namespace tests {

inline std::vector<std::string> slowPieces(const std::string& text, char separator) {
    std::vector<std::string> pieces(1);
    for (const char character : text) {
        if (character == separator) {
            pieces.emplace_back();
        } else {
            pieces.back() += character;
        }
    }
    return pieces;
}

inline std::vector<std::string> slowPiecesWithSomething(const std::string& text, char separator) {
    std::vector<std::string> kept;
    for (const std::string& piece : slowPieces(text, separator)) {
        if (!piece.empty()) kept.push_back(piece);
    }
    return kept;
}

// A run of separators counts as one; at either end of the text it leaves an empty piece.
inline std::vector<std::string> slowSqueezedPieces(const std::string& text, char separator) {
    std::vector<std::string> pieces;
    boost::split(
        pieces, text, [separator](char character) { return character == separator; }, boost::token_compress_on);
    return pieces;
}

// --- numbers

template <typename Value>
std::optional<Value> slowStrictNumber(const std::string& text) {
    Value value = Value();
    if (!boost::conversion::try_lexical_convert(text, value)) return std::nullopt;
    if constexpr (std::is_floating_point_v<Value>) {
        // Boost also accepts the names of infinity and NaN.
        if (!std::isfinite(value)) return std::nullopt;
    }
    return value;
}

inline int slowLooseInt(const std::string& text) {
    return static_cast<int>(std::strtol(text.c_str(), nullptr, 10));
}
inline long long slowLooseLong(const std::string& text) {
    return std::strtoll(text.c_str(), nullptr, 10);
}
inline double slowLooseDouble(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

// --- platform lists, and values by platform

struct SlowPlatformList {
    std::vector<int> ids;
    long complaints = 0;
};

inline SlowPlatformList slowPlatformList(const std::string& text) {
    SlowPlatformList result;
    for (const std::string& item : slowPiecesWithSomething(text, ',')) {
        if (const auto id = slowStrictNumber<int>(item)) {
            result.ids.push_back(*id);
        } else {
            ++result.complaints;
        }
    }
    return result;
}

template <typename Value>
struct SlowPerPlatform {
    std::map<int, Value> values;
    Value fallback;
    long complaints = 0;
};

template <typename Value>
SlowPerPlatform<Value> slowPerPlatformList(const std::string& text, Value builtIn, Value before, bool squeeze) {
    SlowPerPlatform<Value> result{{}, before};
    for (const std::string& item : squeeze ? slowSqueezedPieces(text, ';') : slowPieces(text, ';')) {
        const std::size_t colon = item.find(':');
        if (item.empty()) {
            result.fallback = builtIn;
            continue;
        }
        const auto platform = slowStrictNumber<int>(colon == std::string::npos ? "0" : item.substr(0, colon));
        const auto value = slowStrictNumber<Value>(colon == std::string::npos ? item : item.substr(colon + 1));
        if (!platform || !value) {
            ++result.complaints;
        } else if (colon == std::string::npos) {
            result.fallback = *value;
        } else {
            result.values[*platform] = *value;
        }
    }
    return result;
}

// --- limit rows

struct SlowLimitItem {
    std::string market;
    std::string item;
    bool hasDash;
};

inline std::vector<SlowLimitItem> slowLimitKey(const std::string& key) {
    std::vector<SlowLimitItem> items;
    for (const std::string& text : slowPieces(key, ',')) {
        std::vector<std::string> parts = slowPieces(text, '-');
        const std::string market = parts.front();
        if (parts.size() == 1) {
            items.push_back({market, market, false});
        } else {
            parts.erase(parts.begin());
            items.push_back({market, boost::algorithm::join(parts, "-"), true});
        }
    }
    return items;
}

// The fields of a row, one letter each: i for an integer, d for a decimal, t for a text.
inline const std::string kSlowOrderLimit = "it";
inline const std::string kSlowBlockTradeLimit = "iti";
inline const std::string kSlowStockRate = "ddddddi";
inline const std::string kSlowConnectRate = "dddddddddddddd";
inline const std::string kSlowFixedIncome = "diiiiii";

struct SlowRow {
    std::vector<double> numbers;  // the values of the numeric fields, in order
    std::vector<std::string> texts;
};

// Nothing when the number of fields differs from the number of letters.
inline std::optional<SlowRow> slowRow(const std::string& value, const std::string& letters) {
    const std::vector<std::string> fields = slowPieces(value, ',');
    if (fields.size() != letters.size()) return std::nullopt;
    SlowRow row;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (letters[i] == 'i') row.numbers.push_back(slowLooseInt(fields[i]));
        if (letters[i] == 'd') row.numbers.push_back(slowLooseDouble(fields[i]));
        if (letters[i] == 't') row.texts.push_back(fields[i]);
    }
    return row;
}

// Changes ASCII letters only.
inline std::string slowUpperCase(std::string text) {
    for (char& character : text) {
        if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 'a' + 'A');
    }
    return text;
}

// --- credit lists

struct SlowCreditEntry {
    int platform;
    std::string payload;
    std::vector<std::string> fields;  // the fields after the platform
};

// The entries that have a platform.
inline std::vector<SlowCreditEntry> slowCreditList(const std::string& value) {
    std::vector<SlowCreditEntry> entries;
    for (const std::string& text : slowPieces(value, ';')) {
        const std::size_t colon = text.find(':');
        if (colon == std::string::npos) continue;
        const std::string payload = text.substr(colon + 1);
        entries.push_back({slowLooseInt(text.substr(0, colon)), payload, slowPieces(payload, ',')});
    }
    return entries;
}

// --- catalogue entries

// Splits first:second; nothing unless there is exactly one ":".
inline std::optional<std::array<std::string, 2>> slowPair(const std::string& text) {
    const std::vector<std::string> parts = slowPieces(text, ':');
    if (parts.size() != 2) return std::nullopt;
    return std::array<std::string, 2>{parts[0], parts[1]};
}

// The five fields after a contract's ":"; nothing when their number differs.
inline std::optional<std::vector<std::string>> slowContractFields(const std::string& text) {
    std::vector<std::string> fields = slowPieces(text, ',');
    if (fields.size() != 5) return std::nullopt;
    return fields;
}

}  // namespace tests
