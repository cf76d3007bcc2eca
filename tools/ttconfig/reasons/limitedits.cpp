// Edits of limit rows: answers which rows could be changed, added or removed for another limit.
// Doors: suggestLimit().
// Owns: nothing.
// Covered by tests/tools/ttconfig/whynot_test.cpp.

#include "ttconfig/reasons/limitedits.h"

#include "traderbase/base/config/internal/volumelimit.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;

constexpr std::string_view kOthersOfRow = "everything else that the row names";
constexpr std::string_view kOthersOfCategory = "every other instrument of the category";

std::string joined(const std::vector<std::string>& items) {
    std::string text;
    for (std::size_t i = 0; i < items.size(); ++i)
        text += (i == 0 ? "" : ",") + items[i];
    return text;
}

// The value of a row that gives what is wanted: the row's fields with those in their place, fields that no row has said
// as they are without one.
std::string rowValue(const LimitLookup& asked, std::string_view value, const std::vector<std::string>& wanted) {
    std::vector<std::string> fields;
    if (internal::fieldCount(value) == asked.fieldCount) {
        internal::splitKeepEmpty(value, ',', [&fields](std::string_view field) { fields.emplace_back(field); });
    } else {
        const std::string quantity = std::to_string(internal::kLimitWithoutRow);
        fields = {quantity, internal::volumeLimitWithoutRow().second, quantity};
        fields.resize(asked.fieldCount, "0");
    }
    for (std::size_t i = 0; i < wanted.size() && asked.firstField + i < fields.size(); ++i)
        fields[asked.firstField + i] = wanted[i];
    return joined(fields);
}

// The key without the items that name this place of the table.
std::string keyWithout(const LimitEntry& entry) {
    const internal::MarketItem place = internal::tableKey(entry.item);
    std::vector<std::string> kept;
    internal::forEachLimitItem(entry.row->key, [&](const internal::LimitItem& item) {
        if (internal::tableKey(item) != place) kept.emplace_back(item.text);
    });
    return joined(kept);
}

std::string_view reachOfRow(const LimitEntry& entry, bool isCategory) {
    const bool isAlone = entry.row->key.find(',') == std::string_view::npos;
    if (isCategory) return kOthersOfCategory;
    return isAlone ? std::string_view() : kOthersOfRow;
}

// The row that counts: another value, not this item, not at all.
void suggestRow(const LimitLookup& asked, std::string_view item, const std::vector<std::string>& wanted, Edits& edits) {
    const bool isCategory = item == asked.category.word;
    const LimitEntry* entry = asked.table.find(asked.market, item);
    if (entry == nullptr) return;
    edits.reaching(reachOfRow(*entry, isCategory));
    if (!wanted.empty()) edits.setValue(*entry->row, rowValue(asked, entry->row->value, wanted));
    edits.removeLine(*entry->row);
    const std::string key = keyWithout(*entry);
    edits.reaching(isCategory ? kOthersOfCategory : std::string_view());
    if (!key.empty()) edits.setKey(*entry->row, key);
}

void suggestNewRow(const LimitLookup& asked, std::string_view item, const std::vector<std::string>& wanted,
                   Edits& edits) {
    edits.reaching(item == asked.category.word ? kOthersOfCategory : std::string_view());
    const std::string key = asked.market + "-" + std::string(item);
    for (const internal::SettingKey* section : asked.sections)
        edits.addLast(section->section, key, rowValue(asked, {}, wanted));
}

// Rows that would name the item if they had the right number of fields.
void suggestPassedOver(const LimitLookup& asked, std::string_view item, const std::vector<std::string>& wanted,
                       Edits& edits) {
    for (const PassedOverRow& passed : asked.table.passedOver) {
        if (passed.row->repeated) continue;
        internal::forEachLimitItem(passed.row->key, [&](const internal::LimitItem& written) {
            if (internal::tableKey(written) != internal::MarketItem(asked.market, item)) return;
            edits.reaching(passed.row->key == written.text ? std::string_view() : kOthersOfRow);
            edits.setValue(*passed.row, rowValue(asked, {}, wanted));
        });
    }
}

}  // namespace

void suggestLimit(const LimitLookup& asked, const Wanted& wanted, Edits& edits) {
    const std::vector<std::string> fields = wanted.items();
    std::vector<std::string> items;
    if (asked.looksForCode) items.push_back(asked.code);
    if (items.empty() || items.front() != asked.category.word) items.push_back(asked.categoryWord());
    for (const std::string& item : items) {
        suggestRow(asked, item, fields, edits);
        if (fields.empty()) continue;
        suggestNewRow(asked, item, fields, edits);
        suggestPassedOver(asked, item, fields, edits);
    }
}

}  // namespace ttconfig
