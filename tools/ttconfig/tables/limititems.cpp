// Limit items: answers which rows of a limit table count, as a sorted list.
// Doors: limitItems(), findLimitItem(), lessLimitItem().
// Owns: nothing; the rows' grammar is the library's.
// Covered by tests/tools/ttconfig/limitquestions_test.cpp and report/reportdata_test.cpp.

#include "ttconfig/tables/limititems.h"

#include <algorithm>

#include "ttconfig/text/uppercase.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;

using Sections = std::vector<const SettingKey*>;

// Hands every entry that is a row to sink(entry).
template <typename Sink>
void forEachRow(const standin::SettingsText& text, const Sections& sections, std::size_t fields, Sink&& sink) {
    for (const SettingKey* key : sections) {
        const standin::SettingsSection* section = text.findSection(key->section);
        if (section == nullptr) continue;
        for (const SettingsEntry& entry : section->entries) {
            if (!entry.repeated && fieldCount(entry.value) == fields) sink(entry);
        }
    }
}

int compare(const LimitItem& left, std::string_view market, std::string_view item) {
    const int atMarket = compareUpper(left.market, market);
    return atMarket != 0 ? atMarket : compareUpper(left.item, item);
}

int compare(const LimitItemRow& left, const LimitItemRow& right) {
    const std::string_view one = left.entry->key.substr(left.start);
    const std::string_view two = right.entry->key.substr(right.start);
    const std::size_t shared = std::min(one.size(), two.size());
    std::size_t at = 0;
    while (at < shared && one[at] != ',' && upperLetter(one[at]) == upperLetter(two[at]))
        ++at;
    // Where two letters decide, both are of the market or both are of the item: nothing needs to be taken apart.
    const auto decides = [at](std::string_view key) { return at < key.size() && key[at] != ',' && key[at] != '-'; };
    if (decides(one) && decides(two)) return compareUpper(one.substr(at, 1), two.substr(at, 1));
    const LimitItem other = right.item();
    return compare(left.item(), other.market, other.item);
}

}  // namespace

bool lessLimitItem(const LimitItemRow& left, const LimitItemRow& right) {
    return compare(left, right) < 0;
}

LimitItemRows limitItems(const standin::SettingsText& text, const Sections& sections, std::size_t fields) {
    std::size_t count = 0;
    forEachRow(text, sections, fields, [&count](const SettingsEntry& entry) { count += fieldCount(entry.key); });
    LimitItemRows rows;
    rows.reserve(count);
    forEachRow(text, sections, fields, [&rows](const SettingsEntry& entry) {
        forEachLimitItem(entry.key, [&](const LimitItem& item) {
            const auto start = static_cast<std::uint32_t>(item.text.data() - entry.key.data());
            rows.push_back({&entry, start});
        });
    });
    // Most of a file is in order already: one pass tells when all of it is, and merging has little to do otherwise.
    if (!std::is_sorted(rows.begin(), rows.end(), lessLimitItem)) {
        std::stable_sort(rows.begin(), rows.end(), lessLimitItem);
    }
    const auto isSame = [](const LimitItemRow& left, const LimitItemRow& right) { return compare(left, right) == 0; };
    const auto others = std::unique(rows.rbegin(), rows.rend(), isSame);
    rows.erase(rows.begin(), others.base());
    return rows;
}

const LimitItemRow* findLimitItem(const LimitItemRows& rows, std::string_view market, std::string_view item) {
    const auto found = std::lower_bound(
        rows.begin(), rows.end(), 0,
        [market, item](const LimitItemRow& row, int /*wanted*/) { return compare(row.item(), market, item) < 0; });
    return found != rows.end() && compare(found->item(), market, item) == 0 ? &*found : nullptr;
}

}  // namespace ttconfig
