// Edits of limit rows: answers which rows could be changed, added or removed for another limit.
// Doors: suggestLimit().
// Owns: nothing.
// Covered by tests/tools/ttconfig/whynot_test.cpp.

#include "ttconfig/reasons/limitedits.h"

#include "traderbase/base/config/internal/limits/volumelimit.h"
#include "ttconfig/edits/fieldedits.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;

constexpr std::string_view kOthersOfRow = "everything else that the row names";
constexpr std::string_view kOthersOfCategory = "every other instrument of the category";

// So many rows that say what is wanted are tried for naming one more item.
constexpr std::size_t kMostRowsNaming = 20;

// The fields of a row that gives what is wanted: fields that the answer does not have are as they are without a row
// where no row says them.
WantedPieces fieldsOf(const LimitLookup& asked, const std::vector<std::string>& wanted) {
    const std::string quantity = std::to_string(internal::kLimitWithoutRow);
    std::vector<WantedField> fields = {{quantity, true}, {internal::volumeLimitWithoutRow().second, true}};
    fields.resize(asked.fieldCount, {quantity, true});
    for (std::size_t i = 0; i < wanted.size(); ++i)
        fields[asked.firstField + i] = {wanted[i]};
    return wantedFields(asked.shape, std::move(fields));
}

// The key without the items that name this place of the table.
std::string keyWithout(const LimitLookup& asked, std::string_view key, std::string_view item) {
    std::string kept;
    internal::forEachLimitItem(key, [&](const internal::LimitItem& written) {
        if (!isNamed(written, asked.market, item)) kept.append(kept.empty() ? "" : ",").append(written.text);
    });
    return kept;
}

std::string_view reachOfRow(std::string_view key, bool isCategory) {
    const bool isAlone = key.find(',') == std::string_view::npos;
    if (isCategory) return kOthersOfCategory;
    return isAlone ? std::string_view() : kOthersOfRow;
}

void suggestFields(const standin::SettingsEntry& row, bool isCategory, WantedPieces fields, Edits& edits) {
    fields.reach = reachOfRow(row.key, isCategory);
    suggestPieces(row, row.value, fields, edits);
}

// The row that counts: another value, not this item, not at all.
void suggestRow(const LimitLookup& asked, std::string_view item, const WantedPieces* fields, Edits& edits) {
    const bool isCategory = item == asked.category.word;
    const auto entry = asked.table.find(asked.market, item);
    if (!entry) return;
    if (fields != nullptr) suggestFields(*entry->row, isCategory, *fields, edits);
    edits.reaching(reachOfRow(entry->row->key, isCategory));
    edits.removeLine(*entry->row);
    const std::string key = keyWithout(asked, entry->row->key, item);
    edits.reaching(isCategory ? kOthersOfCategory : std::string_view());
    if (!key.empty()) edits.setKey(*entry->row, key);
}

// A new row, and the item named by a row that says it already.
void suggestNewRow(const LimitLookup& asked, std::string_view item, const WantedPieces& fields, Edits& edits) {
    edits.reaching(item == asked.category.word ? kOthersOfCategory : std::string_view());
    const std::string key = asked.market + "-" + std::string(item);
    for (const internal::SettingKey* section : asked.sections)
        edits.addLast(section->section, key, wholeValue(fields));
    std::size_t named = 0;
    for (const LimitRow& each : asked.table.rows) {
        if (named == kMostRowsNaming) break;
        if (!saysAll(fields, each.row->value)) continue;
        edits.setKey(*each.row, std::string(each.row->key) + "," + key);
        ++named;
    }
}

// Rows that would name the item if they had the right number of fields.
void suggestPassedOver(const LimitLookup& asked, std::string_view item, const WantedPieces& fields, Edits& edits) {
    for (const LimitRow& passed : asked.table.passedOver) {
        if (passed.row->repeated) continue;
        internal::forEachLimitItem(passed.row->key, [&](const internal::LimitItem& written) {
            if (!isNamed(written, asked.market, item)) return;
            suggestFields(*passed.row, item == asked.category.word, fields, edits);
        });
    }
}

}  // namespace

void suggestLimit(const LimitLookup& asked, const Wanted& wanted, Edits& edits) {
    const std::vector<std::string> values = wanted.values();
    const bool fits = !values.empty() && asked.firstField + values.size() <= asked.fieldCount;
    const WantedPieces fields = fieldsOf(asked, fits ? values : std::vector<std::string>());
    std::vector<std::string> items;
    if (asked.looksForCode) items.push_back(asked.code);
    if (items.empty() || items.front() != asked.category.word) items.push_back(asked.categoryWord());
    for (const std::string& item : items) {
        suggestRow(asked, item, fits ? &fields : nullptr, edits);
        if (!fits) continue;
        suggestNewRow(asked, item, fields, edits);
        suggestPassedOver(asked, item, fields, edits);
    }
}

}  // namespace ttconfig
