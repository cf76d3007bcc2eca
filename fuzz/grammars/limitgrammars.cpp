// Limit rows of the target "grammars": their keys, and each field of their values.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/grammars/grammarchecks.h"
#include "fuzz/support/recordnumbers.h"
#include "fuzz/support/samenumber.h"
#include "fuzz/support/target.h"
#include "tests/support/slowgrammars.h"
#include "traderbase/base/config/internal/limits/fixedincome.h"
#include "traderbase/base/config/internal/limits/limitrows.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "traderbase/base/config/shfixincomelimit.h"

namespace fuzz {

using namespace ttservice::internal;

namespace {

// The fields converted by the library's row shape, as its readers do it.
template <std::size_t Count>
std::optional<tests::SlowRow> rowOf(const std::string& text, const LimitRowShape<Count>& shape) {
    LimitFields<LimitRowShape<Count>> fields;
    if (!piecesExactly(text, ',', fields)) return std::nullopt;
    tests::SlowRow row;
    for (std::size_t i = 0; i < Count; ++i) {
        require(isWithin(fields[i], text), "fields of limit rows are views", text);
        switch (shape[i]) {
            case LimitField::Integer:
                row.numbers.push_back(looseInt(fields[i]));
                break;
            case LimitField::Decimal:
                row.numbers.push_back(looseDouble(fields[i]));
                break;
            case LimitField::Text:
                row.texts.emplace_back(fields[i]);
                break;
        }
    }
    return row;
}

// The fields that are not strict numbers but should be. Each letter gives the type of one field.
std::vector<std::string> slowRemarks(const std::vector<std::string>& fields, const std::string& letters) {
    std::vector<std::string> loose;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if ((letters[i] == 'i' && !tests::slowStrictNumber<int>(fields[i])) ||
            (letters[i] == 'd' && !tests::slowStrictNumber<double>(fields[i]))) {
            loose.push_back(fields[i]);
        }
    }
    return loose;
}

template <std::size_t Count>
void requireRow(const std::string& text, const LimitRowShape<Count>& shape, const std::string& letters) {
    const std::optional<tests::SlowRow> row = rowOf(text, shape);
    const std::optional<tests::SlowRow> slow = tests::slowRow(text, letters);
    const std::vector<std::string> fields = tests::slowPieces(text, ',');
    require(fieldCount(text) == fields.size(), "field counts agree", text);
    require(row.has_value() == slow.has_value(), "limit rows agree on how many fields they have", text);
    const std::vector<LimitRowRemark> remarks = examineLimitValue(text, shape);
    if (!slow) {
        require(
            remarks.size() == 1 && remarks[0].finding == LimitRowFinding::WrongFieldCount && remarks[0].where == text,
            "a wrong number of fields is the one remark", text);
        return;
    }
    require(isSame(row->numbers, slow->numbers), "numbers of limit rows agree", text);
    require(row->texts == slow->texts, "texts of limit rows agree", text);
    const std::vector<std::string> loose = slowRemarks(fields, letters);
    require(remarks.size() == loose.size(), "loose numbers of limit rows are remarked on", text);
    for (std::size_t i = 0; i < loose.size(); ++i) {
        require(remarks[i].finding == LimitRowFinding::LooseNumber && remarks[i].where == loose[i] &&
                    isWithin(remarks[i].where, text),
                "remarks are about the fields that are loose", text);
    }
}

}  // namespace

void checkLimitKey(const std::string& text) {
    const std::vector<tests::SlowLimitItem> slow = tests::slowLimitKey(text);
    std::size_t at = 0;
    std::vector<std::string> withoutDash;
    forEachLimitItem(text, [&](const LimitItem& item) {
        require(at < slow.size() && item.market == slow[at].market && item.item == slow[at].item &&
                    item.hasDash == slow[at].hasDash,
                "items of limit keys agree", text);
        require(isWithin(item.text, text) && isWithin(item.market, text) && isWithin(item.item, text),
                "items of limit keys are views", text);
        const MarketItem key{tests::slowUpperCase(slow[at].market), tests::slowUpperCase(slow[at].item)};
        require(tableKey(item) == key, "places in limit tables agree", text);
        if (!slow[at].hasDash) withoutDash.push_back(slow[at].item);
        ++at;
    });
    require(at == slow.size(), "limit keys have as many items", text);
    std::vector<std::string> remarks;
    for (const LimitRowRemark& remark : examineLimitKey(text)) {
        require(remark.finding == LimitRowFinding::ItemWithoutDash, "a remark on a key is about a dash", text);
        remarks.emplace_back(remark.where);
    }
    require(remarks == withoutDash, "items without a dash are remarked on", text);
}

void checkOrderLimitRow(const std::string& text) {
    requireRow(text, kOrderLimitRow, tests::kSlowOrderLimit);
}

void checkBlockTradeLimitRow(const std::string& text) {
    requireRow(text, kBlockTradeLimitRow, tests::kSlowBlockTradeLimit);
}

void checkStockRateRow(const std::string& text) {
    requireRow(text, kStockRateRow, tests::kSlowStockRate);
}

void checkConnectRateRow(const std::string& text) {
    requireRow(text, kConnectRateRow, tests::kSlowConnectRate);
}

void checkFixedIncomeNumbers(const std::string& text) {
    requireRow(text, kFixedIncomeRow, tests::kSlowFixedIncome);
    const auto limit = fixedIncomeLimit(text);
    const auto slow = tests::slowRow(text, tests::kSlowFixedIncome);
    require((limit != nullptr) == slow.has_value(), "fixed-income values agree on what is one", text);
    if (limit) require(isSame(numbersOf(*limit), slow->numbers), "fixed-income numbers agree", text);
}

}  // namespace fuzz
