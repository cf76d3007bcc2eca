// The names in a settings text, for the targets that query them.

#include "fuzz/support/namedin.h"

#include <algorithm>
#include <string_view>

#include "tests/support/slowgrammars.h"

namespace fuzz {

namespace {

constexpr std::size_t kMostWords = 24;
constexpr std::size_t kMostPlatforms = 6;
constexpr std::size_t kMostInstruments = 24;

void addWord(Named& named, std::string_view word) {
    if (word.empty() || named.words.size() == kMostWords) return;
    if (std::find(named.words.begin(), named.words.end(), word) == named.words.end()) named.words.emplace_back(word);
    const auto number = tests::slowStrictNumber<int>(std::string(word));
    if (number && named.platforms.size() < kMostPlatforms) named.platforms.push_back(*number);
}

void addPieces(Named& named, std::string_view value) {
    while (!value.empty()) {
        const std::size_t end = std::min(value.find_first_of(",;:|"), value.size());
        addWord(named, value.substr(0, end));
        value.remove_prefix(std::min(end + 1, value.size()));
    }
}

void addInstruments(Named& named, std::string_view key) {
    for (const tests::SlowLimitItem& item : tests::slowLimitKey(std::string(key))) {
        if (named.instruments.size() < kMostInstruments) named.instruments.emplace_back(item.market, item.item);
    }
}

}  // namespace

Named namedIn(const standin::SettingsText& text) {
    Named named;
    for (const standin::SettingsSection& section : text.sections()) {
        const bool isOfLimits = section.name.find("Limit") != std::string_view::npos;
        for (const standin::SettingsEntry& entry : section.entries) {
            addWord(named, entry.key);
            addPieces(named, entry.value);
            if (isOfLimits) addInstruments(named, entry.key);
        }
    }
    return named;
}

}  // namespace fuzz
