// Limit tables: finds the rows of a settings text that form a limit table, and the ones that count.
// Covered by tests/tools/ttconfig/tables/limitquestions_test.cpp.

#include "ttconfig/tables/limittable.h"

#include <algorithm>
#include <deque>
#include <iterator>

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsText;

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
    // If the first difference is between two letters, both are in the market or both are in the item. Comparing the
    // letters is enough, without splitting the texts.
    const auto decides = [at](std::string_view key) { return at < key.size() && key[at] != ',' && key[at] != '-'; };
    if (decides(one) && decides(two)) return compareUpper(one.substr(at, 1), two.substr(at, 1));
    const LimitItem other = right.item();
    return compare(left.item(), other.market, other.item);
}

}  // namespace

LimitItemRows enteredItems(const SettingsText& text, const LimitTableSpec& table) {
    std::size_t count = 0;
    forEachLimitRow(text, table, [&count](const auto& row) { count += row.counts() ? fieldCount(row.row.key) : 0; });
    LimitItemRows items;
    items.reserve(count);
    forEachLimitRow(text, table, [&items](const auto& row) {
        if (!row.counts()) return;
        row.forEachItem([&](const LimitItem& item) {
            items.push_back({&row.row, static_cast<std::uint32_t>(item.text.data() - row.row.key.data())});
        });
    });
    return items;
}

bool lessLimitItem(const LimitItemRow& left, const LimitItemRow& right) {
    return compare(left, right) < 0;
}

LimitItemRows limitItems(const SettingsText& text, const LimitTableSpec& table) {
    LimitItemRows rows = enteredItems(text, table);
    // Most files are sorted, which one pass can tell. The others are mostly sorted, which is quick to merge.
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

// Comparing texts is enough: texts that are equal in upper case also have the same market and item, since each is split
// at its first "-". Different texts can share market and item only if one has no "-": "A" means the same as "A-A".
LimitWinners::LimitWinners(const SettingsText& text, const LimitTableSpec& table) : items(enteredItems(text, table)) {
    last.reserve(items.size());
    std::uint32_t number = 0;
    for (const LimitItemRow& item : items)
        last[item.text()] = ++number;
}

Place LimitWinners::winner(const LimitItem& item) const {
    const std::uint32_t number = last.find(item.text);
    return number == 0 ? Place() : items[number - 1].place();
}

LimitEntries limitEntries(const SettingsText& text, const LimitTableSpec& table, std::string_view market,
                          std::string_view item) {
    std::deque<LimitEntry> entered;
    LimitEntries entries;
    const auto enter = [&](const LimitEntry& entry, bool counts) {
        if (counts) {
            entered.push_back(entry);
            if (entered.size() <= kMostListed) return;
            entered.pop_front();
            ++entries.furtherFormer;
        } else if (entries.passedOver.size() < kMostListed) {
            entries.passedOver.push_back(entry);
        } else {
            ++entries.furtherPassedOver;
        }
    };
    forEachLimitRow(text, table, [&](const auto& row) {
        row.forEachItem([&](const LimitItem& written) {
            if (isNamed(written, market, item)) enter({&row.section, &row.row, written}, row.counts());
        });
    });
    if (entered.empty()) return entries;
    entries.last = entered.back();
    entries.former.assign(std::next(entered.rbegin()), entered.rend());
    return entries;
}

}  // namespace ttconfig
