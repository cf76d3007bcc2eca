// Limit rows: splits the keys and values of the limit sections, and reports what is wrong with them.
// Entry points: limitItem(), tableKey(), forEachLimitItem(), fieldCount(), examineLimitKey(), examineLimitValue().
// Owns: the shapes of the rows.
// Covered by tests/config/internal/limits/limitrows_test.cpp.

#include "traderbase/base/config/internal/limits/limitrows.h"

#include <algorithm>

#include <ttplatform/text.h>

#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttservice::internal {

namespace {

bool isPlainNumber(std::string_view field, LimitField kind) {
    switch (kind) {
        case LimitField::Integer:
            return strictInt(field).has_value();
        case LimitField::Decimal:
            return strictDouble(field).has_value();
        case LimitField::Text:
            break;
    }
    return true;
}

}  // namespace

LimitItem limitItem(std::string_view text) {
    const std::size_t dash = text.find('-');
    if (dash == std::string_view::npos) return {text, text, text, false};
    return {text, text.substr(0, dash), text.substr(dash + 1), true};
}

MarketItem tableKey(const LimitItem& item) {
    return {utils::toUpper(std::string(item.market)), utils::toUpper(std::string(item.item))};
}

std::size_t fieldCount(std::string_view value) {
    return static_cast<std::size_t>(std::count(value.begin(), value.end(), ',')) + 1;
}

std::vector<LimitRowRemark> examineLimitKey(std::string_view key) {
    std::vector<LimitRowRemark> remarks;
    forEachLimitItem(key, [&remarks](const LimitItem& item) {
        if (!item.hasDash) remarks.push_back({LimitRowFinding::ItemWithoutDash, item.text});
    });
    return remarks;
}

std::vector<LimitRowRemark> examineLimitValue(std::string_view value, const LimitField* shape, std::size_t count) {
    if (fieldCount(value) != count) return {{LimitRowFinding::WrongFieldCount, value}};
    std::vector<LimitRowRemark> remarks;
    splitKeepEmpty(value, ',', [&](std::string_view field) {
        if (!isPlainNumber(field, *shape++)) remarks.push_back({LimitRowFinding::LooseNumber, field});
    });
    return remarks;
}

}  // namespace ttservice::internal
