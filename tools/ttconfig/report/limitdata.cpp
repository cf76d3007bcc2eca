// The limits' data: answers the rows of the limit and rate tables, as they stand after later rows have won.
// Doors: writeLimitData().
// Owns: the titles and columns of the tables.
// Covered by tests/tools/ttconfig/report/reportdata_test.cpp.

#include <standin/numbertext.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "ttconfig/differences/mergedrows.h"
#include "ttconfig/report/datawriters.h"
#include "ttconfig/tables/creditfacts.h"
#include "ttconfig/tables/limititems.h"

namespace ttconfig {

namespace {

using namespace ttservice::internal;
using standin::SettingsEntry;
using standin::SettingsText;

// Of one table: what it says for a market and an item, and where.
struct ShownRow {
    std::string market;
    std::string item;
    std::string values;  // a JSON array
    std::uint32_t line = 0;
};

struct LimitPage {
    const char* title;
    const char* about;
    std::vector<const char*> columns;
};

const std::vector<const char*> kConnectColumns = {"rate 1",  "rate 2",  "rate 3",  "rate 4", "rate 5",
                                                  "rate 6",  "rate 7",  "rate 8",  "rate 9", "rate 10",
                                                  "rate 11", "rate 12", "rate 13", "rate 14"};

// --- what a row says

std::string fieldsJson(std::string_view value, const LimitField* shape) {
    std::string text;
    JsonStream json([&text](std::string_view piece) { text += piece; });
    std::size_t at = 0;
    const auto write = [&](std::string_view field) {
        const LimitField kind = shape[at++];
        if (kind == LimitField::Integer) json.integer(looseInt(field));
        if (kind == LimitField::Decimal) json.decimal(looseDouble(field));
        if (kind == LimitField::Text) json.text(field);
    };
    splitKeepEmpty(value, ',', write);
    json.flush();
    return '[' + text + ']';
}

// --- a table beside an older one

// Writes rows one by one, up to as many as a page shows.
class RowWriter {
public:
    RowWriter(JsonStream& stream, ReportState& reportState) : json(stream), state(reportState) {}

    // Null for a file that has no such row.
    void write(const ShownRow* now, const ShownRow* before) {
        const ShownRow* either = now != nullptr ? now : before;
        if (either == nullptr || count++ >= state.bounds.rows) return;
        json.beginArray();
        json.text(either->market);
        json.text(either->item);
        writeSide(now, state.lines);
        if (state.oldText() != nullptr) writeSide(before, state.oldLines);
        json.endArray();
    }

    std::size_t leftOut() const { return count - std::min(count, state.bounds.rows); }

private:
    void writeSide(const ShownRow* row, LinkedLines& lines) {
        if (row == nullptr) {
            json.null();
        } else {
            json.written(row->values);
        }
        json.integer(row == nullptr ? 0 : lines.mark(row->line));
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

// Walks two sorted tables together; shown(row) says what the page shows of one.
template <typename Row, typename Less, typename Shown>
void mergeInto(RowWriter& writer, const std::vector<Row>& now, const std::vector<Row>& before, Less less,
               const Shown& shown) {
    mergeRows(before, now, less, [&](const Row& /*either*/, const Row* older, const Row* newer) {
        const ShownRow newRow = newer == nullptr ? ShownRow{} : shown(*newer);
        const ShownRow oldRow = older == nullptr ? ShownRow{} : shown(*older);
        writer.write(newer == nullptr ? nullptr : &newRow, older == nullptr ? nullptr : &oldRow);
    });
}

// --- the tables

ShownRow shownItem(const LimitItemRow& row, const LimitField* shape) {
    const MarketItem place = tableKey(row.item());
    return {place.first, place.second, fieldsJson(row.entry->value, shape), row.entry->line};
}

using Sections = std::vector<const SettingKey*>;

template <std::size_t Count>
void writeLimitTable(JsonStream& json, ReportState& state, const LimitPage& page, const Sections& sections,
                     const LimitRowShape<Count>& shape) {
    writePage(json, state, page, [&](RowWriter& writer) {
        const auto shown = [&shape](const LimitItemRow& row) { return shownItem(row, shape.data()); };
        const auto* old = state.oldText();
        mergeInto(writer, limitItems(state.text(), sections, Count),
                  old == nullptr ? LimitItemRows() : limitItems(*old, sections, Count), lessLimitItem, shown);
    });
}

using BondRow = const SettingsEntry*;

ShownRow shownBond(BondRow row) {
    double ratio = valueWhenMissing<double>(keys::standardBondUse);
    standin::readDecimal(row->value, ratio);
    std::string values;
    JsonStream json([&values](std::string_view piece) { values += piece; });
    json.decimal(ratio);
    json.flush();
    return {"", std::string(row->key), '[' + values + ']', row->line};
}

bool lessBond(BondRow left, BondRow right) {
    return left->key < right->key;
}

// A code that is found in upper case as well has one row, the one that is written.
std::vector<BondRow> bondsOf(const SettingsText* text) {
    std::vector<BondRow> rows;
    const auto* section = text == nullptr ? nullptr : text->findSection(keys::standardBondUse.section);
    if (section == nullptr) return rows;
    rows.reserve(section->entries.size());
    for (const SettingsEntry& entry : section->entries) {
        if (!entry.repeated) rows.push_back(&entry);
    }
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

// Nothing when the key is missing or does not have its seven numbers.
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
            if (now || before) writer.write(now ? &*now : nullptr, before ? &*before : nullptr);
        }
    });
}

void writeRates(JsonStream& json, ReportState& state) {
    writeLimitTable(json, state,
                    {"Rates, exchanges",
                     "What each number limits is for the order checks of the trading core to say.",
                     {"rate 1", "rate 2", "rate 3", "rate 4", "rate 5", "rate 6", "count"}},
                    {&keys::stockRates}, kStockRateRow);
    writeLimitTable(json, state,
                    {"Rates, Shanghai connect", "The market HK goes by the rows of HGT here.", kConnectColumns},
                    {&keys::connectShanghaiRates}, kConnectRateRow);
    writeLimitTable(json, state,
                    {"Rates, Shenzhen connect", "The market HK goes by the rows of SGT here.", kConnectColumns},
                    {&keys::connectShenzhenRates}, kConnectRateRow);
}

}  // namespace

void writeLimitData(JsonStream& json, ReportState& state) {
    json.name("limits");
    json.beginArray();
    writeLimitTable(json, state,
                    {"Order limits",
                     "The largest quantity of one order; 1000000 shares where no row fits. A row for a code counts "
                     "before the row for its category.",
                     {"quantity", "unit"}},
                    {&keys::orderLimits, &keys::connectShanghaiOrderLimits, &keys::connectShenzhenOrderLimits},
                    kOrderLimitRow);
    writeLimitTable(json, state,
                    {"Block trades",
                     "By category alone: a row for a code is never found. 1000000 where no row fits.",
                     {"quantity", "unit", "amount"}},
                    {&keys::blockTradeLimits}, kBlockTradeLimitRow);
    writeRates(json, state);
    writeFixedIncome(json, state);
    writeBonds(json, state);
    json.endArray();
}

}  // namespace ttconfig
