// Limit data: writes the rows of the limit and rate tables that count after later rows have replaced earlier ones.
// Entry points: writeLimitData().
// Owns: the titles and columns of the tables.
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include <algorithm>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/fixedincome.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/report/datawriters.h"
#include "ttconfig/tables/limittable.h"
#include "ttconfig/tables/numberrows.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsText;

// What a table says for a market and an item, and on which line.
struct ShownRow {
    std::string market;
    std::string item;
    std::string values;  // a JSON array
    std::uint32_t line = 0;
};

using Columns = std::vector<const char*>;

struct LimitPage {
    const char* title;
    const char* about;
    Columns columns;
    const LimitTableSpec* table = nullptr;
};

const Columns kConnectColumns = {"rate 1", "rate 2", "rate 3",  "rate 4",  "rate 5",  "rate 6",  "rate 7",
                                 "rate 8", "rate 9", "rate 10", "rate 11", "rate 12", "rate 13", "rate 14"};

// The tables, in the order in which the page shows them.
const LimitPage kTablePages[] = {
    {"Order limits",
     "The largest quantity of one order; 1000000 shares where no row fits. A row for a code counts before the row for "
     "its category.",
     {"quantity", "unit"},
     &kOrderLimitTable},
    {"Block trades",
     "By category alone: a row for a code is never found. 1000000 where no row fits.",
     {"quantity", "unit", "amount"},
     &kBlockTradeTable},
    {"Rates, exchanges",
     "What each number limits is for the order checks of the trading core to say.",
     {"rate 1", "rate 2", "rate 3", "rate 4", "rate 5", "rate 6", "count"},
     &kStockRateTable},
    {"Rates, Shanghai connect", "The market HK goes by the rows of HGT here.", kConnectColumns,
     &kShanghaiConnectRateTable},
    {"Rates, Shenzhen connect", "The market HK goes by the rows of SGT here.", kConnectColumns,
     &kShenzhenConnectRateTable}};

// --- what a row says

std::string fieldsJson(std::string_view value, const LimitField* shape) {
    std::string text;
    JsonStream json([&text](std::string_view piece) { text += piece; });
    const auto write = [&json](auto field) {
        if constexpr (std::is_same_v<decltype(field), int>) {
            json.integer(field);
        } else if constexpr (std::is_same_v<decltype(field), double>) {
            json.decimal(field);
        } else {
            json.text(field);
        }
    };
    splitKeepEmpty(value, ',', [&](std::string_view field) { withFieldValue(*shape++, field, write); });
    json.flush();
    return '[' + text + ']';
}

// --- a table next to its older version

// Writes rows one by one, at most as many as a page shows.
class RowWriter {
public:
    RowWriter(JsonStream& stream, ReportState& reportState) : json(stream), state(reportState) {}

    // Writes a row of the file and the same row of the older file. At least one of them exists.
    void write(const std::optional<ShownRow>& now, const std::optional<ShownRow>& before) {
        if (count++ >= state.bounds.rows) return;
        const ShownRow& either = now ? *now : *before;
        json.beginArray();
        json.text(either.market);
        json.text(either.item);
        writeSide(now, state.lines);
        if (state.oldText() != nullptr) writeSide(before, state.oldLines);
        json.endArray();
    }

    std::size_t leftOut() const { return count - std::min(count, state.bounds.rows); }

private:
    void writeSide(const std::optional<ShownRow>& row, LinkedLines& lines) {
        row ? json.written(row->values) : json.null();
        json.integer(row ? lines.mark(row->line) : 0);
    }

    JsonStream& json;
    ReportState& state;
    std::size_t count = 0;
};

template <typename Rows>
void writePage(JsonStream& json, ReportState& state, const LimitPage& page, Rows&& rows) {
    json.beginObject();
    json.name("title");
    json.text(page.title);
    json.name("about");
    json.text(page.about);
    json.name("columns");
    json.beginArray();
    for (const char* column : page.columns)
        json.text(column);
    json.endArray();
    json.name("rows");
    json.beginArray();
    RowWriter writer(json, state);
    rows(writer);
    json.endArray();
    json.name("leftOut");
    json.integer(static_cast<std::int64_t>(writer.leftOut()));
    json.endObject();
}

// Walks two sorted tables together; shown(row) is what the page shows of a row.
template <typename Row, typename Less, typename Shown>
void mergeInto(RowWriter& writer, const std::vector<Row>& now, const std::vector<Row>& before, Less less,
               const Shown& shown) {
    const auto shownIfThere = [&shown](const Row* row) {
        return row == nullptr ? std::nullopt : std::optional<ShownRow>(shown(*row));
    };
    mergeRows(before, now, less, [&](const Row& /*either*/, const Row* older, const Row* newer) {
        writer.write(shownIfThere(newer), shownIfThere(older));
    });
}

// --- the tables

ShownRow shownItem(const LimitItemRow& row, const LimitField* shape) {
    const MarketItem place = tableKey(row.item());
    return {place.first, place.second, fieldsJson(row.entry->value, shape), row.entry->line};
}

void writeLimitTable(JsonStream& json, ReportState& state, const LimitPage& page) {
    writePage(json, state, page, [&](RowWriter& writer) {
        const auto shown = [&page](const LimitItemRow& row) { return shownItem(row, page.table->shape); };
        const auto* old = state.oldText();
        mergeInto(writer, limitItems(state.text(), *page.table),
                  old == nullptr ? LimitItemRows() : limitItems(*old, *page.table), lessLimitItem, shown);
    });
}

using BondRow = const SettingsEntry*;

ShownRow shownBond(BondRow row) {
    std::string values;
    JsonStream json([&values](std::string_view piece) { values += piece; });
    json.decimal(numberOf(*row).value_or(valueWhenMissing<double>(keys::standardBondUse)));
    json.flush();
    return {"", std::string(row->key), '[' + values + ']', row->line};
}

bool lessBond(BondRow left, BondRow right) {
    return left->key < right->key;
}

// One row per code, as written, although a code is also found in upper case.
std::vector<BondRow> bondsOf(const SettingsText* text) {
    std::vector<BondRow> rows;
    if (text == nullptr) return rows;
    forEachNumberRow(*text, keys::standardBondUse, [&rows](const SettingsEntry& entry) { rows.push_back(&entry); });
    std::sort(rows.begin(), rows.end(), lessBond);
    return rows;
}

void writeBonds(JsonStream& json, ReportState& state) {
    const LimitPage page{"Standard bonds",
                         "The usage ratio; 1 for a bond that has no row. A code is found in upper case as well.",
                         {"ratio"}};
    writePage(json, state, page, [&](RowWriter& writer) {
        mergeInto(writer, bondsOf(&state.text()), bondsOf(state.oldText()), lessBond, shownBond);
    });
}

// Nothing when the key is missing or its value does not have seven numbers.
std::optional<ShownRow> fixedIncomeRow(const SettingsText& text, const SettingKey& key) {
    const SettingsEntry* entry = text.findEntry(key.section, key.key);
    if (entry == nullptr || fieldCount(entry->value) != kFixedIncomeRow.size()) return std::nullopt;
    return ShownRow{"", std::string(key.key), fieldsJson(entry->value, kFixedIncomeRow.data()), entry->line};
}

void writeFixedIncome(JsonStream& json, ReportState& state) {
    const LimitPage page{"Shanghai fixed-income platform",
                         "The order parameters of each way of trading, in the order of the file.",
                         {"decimal", "number 1", "number 2", "number 3", "number 4", "number 5", "number 6"}};
    writePage(json, state, page, [&](RowWriter& writer) {
        for (const FixedIncomeKey& key : kFixedIncomeKeys) {
            const auto now = fixedIncomeRow(state.text(), *key.key);
            const auto before = state.oldText() == nullptr ? std::nullopt : fixedIncomeRow(*state.oldText(), *key.key);
            if (now || before) writer.write(now, before);
        }
    });
}

}  // namespace

void writeLimitData(JsonStream& json, ReportState& state) {
    json.name("limits");
    json.beginArray();
    for (const LimitPage& page : kTablePages)
        writeLimitTable(json, state, page);
    writeFixedIncome(json, state);
    writeBonds(json, state);
    json.endArray();
}

}  // namespace ttconfig
