// Each value grammar on any bytes, held against its slow oracle. One input is a value of all of them.

#include <cmath>
#include <string>
#include <vector>

#include "fuzz/target.h"
#include "tests/support/slowgrammars.h"
#include "tests/support/standarderror.h"
#include "traderbase/base/config/internal/catalogueentries.h"
#include "traderbase/base/config/internal/creditlists.h"
#include "traderbase/base/config/internal/limitrows.h"
#include "traderbase/base/config/internal/perplatformlist.h"
#include "traderbase/base/config/internal/platformlist.h"
#include "traderbase/base/config/internal/strictnumbers.h"

namespace {

using fuzz::isWithin;
using fuzz::require;
using namespace ttservice::internal;

bool isSame(double left, double right) {
    if (std::isnan(left) || std::isnan(right)) return std::isnan(left) && std::isnan(right);
    return left == right && std::signbit(left) == std::signbit(right);
}

void checkNumbers(const std::string& text) {
    require(strictInt(text) == tests::slowStrictNumber<int>(text), "strict integers agree", text);
    require(strictBool(text) == tests::slowStrictNumber<bool>(text), "strict flags agree", text);
    const auto strict = strictDouble(text);
    const auto slow = tests::slowStrictNumber<double>(text);
    require(strict.has_value() == slow.has_value(), "strict numbers agree on what is one", text);
    if (strict) require(isSame(*strict, *slow), "strict numbers agree", text);
    require(looseInt(text) == tests::slowLooseInt(text), "loose integers agree", text);
    require(looseLong(text) == tests::slowLooseLong(text), "loose wide integers agree", text);
    require(isSame(looseDouble(text), tests::slowLooseDouble(text)), "loose numbers agree", text);
}

void checkPlatformList(const std::string& text) {
    const tests::SlowPlatformList slow = tests::slowPlatformList(text);
    const tests::StandardError caught;
    require(readPlatformList(text) == slow.ids, "platform lists agree", text);
    require(caught.lines() == slow.complaints, "a bad piece of a platform list costs one line", text);
    forEachPlatformPiece(text, [&text](std::string_view piece, std::optional<int>) {
        require(isWithin(piece, text) && !piece.empty(), "pieces of platform lists are views", text);
    });
}

template <typename Value>
void checkPerPlatformList(const std::string& text, Value builtIn, Value before) {
    for (const bool squeeze : {true, false}) {
        PerPlatformTable<Value> table{{{99, Value()}}, before};
        const auto slow = tests::slowPerPlatformList<Value>(text, builtIn, before, squeeze);
        const tests::StandardError caught;
        if (squeeze) {
            readPerPlatformList(text, builtIn, table);
        } else {
            readPerPlatformListKeepEmpty(text, builtIn, table);
        }
        require(table.byPlatform == slow.values, "values by platform agree", text);
        require(table.byDefault == slow.fallback, "defaults of values by platform agree", text);
        require(caught.lines() == slow.complaints, "a bad item of values by platform costs one line", text);
    }
}

void checkLimitKey(const std::string& text) {
    const std::vector<tests::SlowLimitItem> slow = tests::slowLimitKey(text);
    std::size_t at = 0;
    std::size_t withoutDash = 0;
    forEachLimitItem(text, [&](const LimitItem& item) {
        require(at < slow.size() && item.market == slow[at].market && item.item == slow[at].item &&
                    item.hasDash == slow[at].hasDash,
                "items of limit keys agree", text);
        require(isWithin(item.text, text) && isWithin(item.market, text) && isWithin(item.item, text),
                "items of limit keys are views", text);
        const MarketItem key{tests::slowUpperCase(slow[at].market), tests::slowUpperCase(slow[at].item)};
        require(tableKey(item) == key, "places in limit tables agree", text);
        withoutDash += !item.hasDash;
        ++at;
    });
    require(at == slow.size(), "limit keys have as many items", text);
    require(examineLimitKey(text).size() == withoutDash, "items without a dash are remarked on", text);
}

template <std::size_t Count>
void checkLimitValue(const std::string& text, const LimitRowShape<Count>& shape) {
    const std::vector<std::string> fields = tests::slowPieces(text, ',');
    const auto remarks = examineLimitValue(text, shape);
    if (fields.size() != Count) {
        require(remarks.size() == 1 && remarks[0].finding == LimitRowFinding::WrongFieldCount,
                "a wrong number of fields is the one remark", text);
        return;
    }
    std::size_t loose = 0;
    for (std::size_t i = 0; i < Count; ++i) {
        loose += (shape[i] == LimitField::Integer && !tests::slowStrictNumber<int>(fields[i])) ||
                 (shape[i] == LimitField::Decimal && !tests::slowStrictNumber<double>(fields[i]));
    }
    require(remarks.size() == loose, "loose numbers of limit rows are remarked on", text);
    for (const LimitRowRemark& remark : remarks)
        require(isWithin(remark.where, text), "remarks are about a part of the value", text);
}

void checkLimitRows(const std::string& text) {
    checkLimitKey(text);
    require(fieldCount(text) == tests::slowPieces(text, ',').size(), "field counts agree", text);
    checkLimitValue(text, kOrderLimitRow);
    checkLimitValue(text, kBlockTradeLimitRow);
    checkLimitValue(text, kStockRateRow);
    checkLimitValue(text, kConnectRateRow);
    checkLimitValue(text, kFixedIncomeRow);
}

void checkCreditLists(const std::string& text) {
    const std::vector<tests::SlowCreditEntry> slow = tests::slowCreditList(text);
    std::size_t at = 0;
    forEachCollateralSaleEntry(text, [&](const CreditEntry& entry) {
        require(isWithin(entry.text, text), "credit entries are views", text);
        if (entry.kind == CreditEntryKind::NoPlatform) return;
        require(at < slow.size() && entry.platform == slow[at].platform && entry.payload == slow[at].payload,
                "collateral-sale entries agree", text);
        ++at;
    });
    require(at == slow.size(), "as many collateral-sale entries", text);
    at = 0;
    forEachConcentrationEntry(text, [&](const ConcentrationEntry& entry) {
        if (entry.kind == CreditEntryKind::NoPlatform) return;
        require(at < slow.size() && entry.platform == slow[at].platform, "concentration entries agree", text);
        const std::vector<std::string>& fields = slow[at].fields;
        ++at;
        const bool isEntry = entry.kind == CreditEntryKind::Entry;
        require(isEntry == (fields.size() >= 2), "a concentration entry has two numbers", text);
        if (isEntry) {
            require(entry.ratios[0] == fields[0] && entry.ratios[1] == fields[1], "the first two numbers count", text);
        }
    });
    require(at == slow.size(), "as many concentration entries", text);
}

void checkContract(const ContractEntry& entry) {
    const std::string text(entry.text);
    const auto pair = tests::slowPair(text);
    require(isStored(entry.outcome) == (!text.empty() && pair.has_value()), "contracts agree on what is one", text);
    if (!isStored(entry.outcome)) return;
    require(entry.productId == (*pair)[0], "contracts agree on the product", text);
    const auto fields = tests::slowContractFields((*pair)[1]);
    require((entry.outcome == EntryOutcome::Stored) == fields.has_value(), "a contract has five fields", text);
    for (std::size_t i = 0; i < entry.fields.size(); ++i)
        require(entry.fields[i] == (fields ? (*fields)[i] : std::string()), "contract fields agree", text);
}

void checkCatalogueEntries(const std::string& text) {
    std::size_t entries = 0;
    forEachEntry(text, contractEntry, [&](const ContractEntry& entry) {
        require(isWithin(entry.text, text), "catalogue entries are views", text);
        checkContract(entry);
        ++entries;
    });
    require(entries == tests::slowPieces(text, ';').size(), "as many catalogue entries", text);
    forEachEntry(text, pairEntry, [](const PairEntry& entry) {
        const std::string piece(entry.text);
        const auto pair = tests::slowPair(piece);
        require(isStored(entry.outcome) == pair.has_value(), "pairs agree on what is one", piece);
        if (pair) require(entry.first == (*pair)[0] && entry.second == (*pair)[1], "pairs agree", piece);
    });
    forEachEntry(text, marketCodesEntry, [](const MarketCodesEntry& entry) {
        const std::string piece(entry.text);
        const std::size_t colon = piece.find(':');
        const bool isBoth = colon == std::string::npos;
        require(entry.market == piece.substr(0, colon), "markets of code lists agree", piece);
        require(entry.codes == (isBoth ? piece : piece.substr(colon + 1)), "codes of code lists agree", piece);
    });
    const TagEntry tag = tagEntry(text);
    const std::vector<std::string> parts = tests::slowPieces(text, ':');
    require(isStored(tag.outcome) == (parts.size() > 1), "tags agree on what is one", text);
    if (parts.size() > 1) require(tag.tag == parts[0] && tag.times == parts[1], "tags agree", text);
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    const std::string text(input);
    checkNumbers(text);
    checkPlatformList(text);
    checkPerPlatformList<bool>(text, true, false);
    checkPerPlatformList<int>(text, 500, 7);
    checkPerPlatformList<double>(text, 0.6, 0.25);
    checkLimitRows(text);
    checkCreditLists(text);
    checkCatalogueEntries(text);
    // Numbers are more often parts of a value than the whole of it.
    for (const std::string& piece : tests::slowPieces(text, ','))
        checkNumbers(piece);
}

TT_FUZZ_TARGET
