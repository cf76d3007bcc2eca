// Names: knows which sections and keys exist, and which of them an unknown name resembles.
// Entry points: NameIndex, KnownNames.
// Owns: the indexes over the key catalogue and the switches.
// Covered by tests/tools/ttconfig/findings/findingparts_test.cpp.

#include "ttconfig/advice/names.h"

#include <algorithm>

#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/text/nearestname.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;

constexpr std::size_t kMostThorough = 200;
constexpr std::size_t kLongestName = 100;

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string inLowerCase(std::string_view name) {
    std::string text(name);
    std::transform(text.begin(), text.end(), text.begin(), lowered);
    return text;
}

// The set of characters in a name. Adding or removing a letter changes at most one bit; replacing a letter, at most
// two.
std::uint64_t lettersOf(std::string_view name) {
    std::uint64_t letters = 0;
    for (const char c : name)
        letters |= std::uint64_t{1} << (static_cast<unsigned char>(lowered(c)) & 63U);
    return letters;
}

int bitsOf(std::uint64_t bits) {
    int count = 0;
    for (; bits != 0; bits &= bits - 1)
        ++count;
    return count;
}

std::size_t difference(std::size_t left, std::size_t right) {
    return left > right ? left - right : right - left;
}

std::vector<std::string_view> sectionList() {
    std::vector<std::string_view> list{kMainSection};
    for (const SettingKey& row : kSettingKeys) {
        if (std::find(list.begin(), list.end(), row.section) == list.end()) list.push_back(row.section);
    }
    return list;
}

std::vector<std::string_view> keyList(std::string_view section) {
    std::vector<std::string_view> list;
    for (const SettingKey& row : kSettingKeys) {
        if (row.section == section && row.key != "*") list.push_back(row.key);
    }
    if (section != kMainSection) return list;
    for (const PlatformSwitch& row : kPlatformSwitches)
        list.push_back(row.key);
    return list;
}

}  // namespace

NameIndex::NameIndex(std::vector<std::string_view> known) {
    for (const std::string_view name : known) {
        names.push_back({name, lettersOf(name)});
        byLowerCase.emplace(inLowerCase(name), name);
    }
}

std::string_view NameIndex::inOtherCase(std::string_view name) const {
    if (name.size() > kLongestName) return {};
    const auto found = byLowerCase.find(inLowerCase(name));
    return found == byLowerCase.end() ? std::string_view() : found->second;
}

std::string NameIndex::didYouMean(std::string_view name) {
    if (name.size() > kLongestName) return {};
    const bool isThorough = ++thorough <= kMostThorough;
    // A name with slips in more than a third of its letters resembles nothing.
    const std::size_t slips = isThorough ? name.size() / 3 + 1 : 1;
    const std::uint64_t letters = lettersOf(name);
    std::vector<std::string_view> near;
    for (const Known& known : names) {
        // Each slip changes the length by at most one and the set of letters by at most two.
        if (difference(known.name.size(), name.size()) > slips) continue;
        if (bitsOf(known.letters ^ letters) <= 2 * static_cast<int>(slips)) near.push_back(known.name);
    }
    return near.empty() ? std::string() : ttconfig::didYouMean(name, near);
}

KnownNames::KnownNames() : sectionNames(sectionList()) {
    sections[kMainSection];
    for (const SettingKey& row : kSettingKeys) {
        sections[row.section].emplace(row.key, &row);
        if (row.key == "*") continue;
        byKey.emplace(row.key, &row);
        splitDropEmpty(row.feeds, ' ', [&](std::string_view question) {
            const auto [known, isNew] = byQuestion.emplace(question, row.key);
            if (!isNew) known->second = {};
        });
    }
    for (const PlatformSwitch& row : kPlatformSwitches)
        byQuestion.emplace(row.predicate, row.key);
}

std::string_view KnownNames::keyOfQuestion(std::string_view name) const {
    const auto key = byQuestion.find(name);
    return key == byQuestion.end() ? std::string_view() : key->second;
}

const SettingKey* KnownNames::rowOf(std::string_view section, std::string_view key) const {
    const auto rows = sections.find(section);
    if (rows == sections.end()) return nullptr;
    auto row = rows->second.find("*");
    if (row == rows->second.end()) row = rows->second.find(key);
    return row == rows->second.end() ? nullptr : row->second;
}

const SettingKey* KnownNames::rowAnywhere(std::string_view key) const {
    const auto row = byKey.find(key);
    return row == byKey.end() ? nullptr : row->second;
}

NameIndex& KnownNames::keyIndex(std::string_view section) {
    const auto known = keyNames.find(section);
    if (known != keyNames.end()) return known->second;
    return keyNames.emplace(section, NameIndex(keyList(section))).first->second;
}

}  // namespace ttconfig
