// Splitting and per-platform lists of the target "grammars".

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/grammars/grammarchecks.h"
#include "fuzz/support/target.h"
#include "tests/support/slowgrammars.h"
#include "tests/support/standarderror.h"
#include "traderbase/base/config/internal/platforms/creditlists.h"
#include "traderbase/base/config/internal/platforms/perplatformlist.h"
#include "traderbase/base/config/internal/platforms/platformlist.h"
#include "traderbase/base/config/internal/text/splitting.h"

namespace fuzz {

using namespace ttservice::internal;

namespace {

void requirePieces(const std::string& text, const std::vector<std::string_view>& found,
                   const std::vector<std::string>& expected, const char* rule) {
    require(std::vector<std::string>(found.begin(), found.end()) == expected, rule, text);
    for (const std::string_view piece : found)
        require(isWithin(piece, text), "pieces are views", text);
}

template <std::size_t Count>
void requireExactPieces(const std::string& text, char separator, const std::vector<std::string>& expected) {
    std::array<std::string_view, Count> fields;
    const bool isThatMany = piecesExactly(text, separator, fields);
    require(isThatMany == (expected.size() == Count), "texts agree on how many pieces they have", text);
    for (std::size_t i = 0; isThatMany && i < Count; ++i)
        require(fields[i] == expected[i] && isWithin(fields[i], text), "pieces that are counted agree", text);
}

template <typename Value>
void requirePerPlatform(const std::string& text, Value builtIn, Value before, bool squeeze) {
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

}  // namespace

void checkSplitting(const std::string& text) {
    for (const char separator : {',', ';'}) {
        const std::vector<std::string> all = tests::slowPieces(text, separator);
        std::vector<std::string_view> found;
        const auto sink = [&found](std::string_view piece) { found.push_back(piece); };
        splitKeepEmpty(text, separator, sink);
        requirePieces(text, found, all, "pieces agree");
        requirePieces(text, pieces(text, separator), all, "lists of pieces agree");
        found.clear();
        splitDropEmpty(text, separator, sink);
        requirePieces(text, found, tests::slowPiecesWithSomething(text, separator), "pieces with something agree");
        found.clear();
        splitSqueezed(text, separator, sink);
        requirePieces(text, found, tests::slowSqueezedPieces(text, separator), "pieces between runs agree");
        requireExactPieces<1>(text, separator, all);
        requireExactPieces<2>(text, separator, all);
        requireExactPieces<3>(text, separator, all);
        requireExactPieces<5>(text, separator, all);
        requireExactPieces<7>(text, separator, all);
        requireExactPieces<14>(text, separator, all);
    }
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

void checkPerPlatformFlags(const std::string& text) {
    requirePerPlatform<bool>(text, true, false, true);
}

void checkPerPlatformIntegers(const std::string& text) {
    requirePerPlatform<int>(text, 500, 7, true);
}

void checkPerPlatformFlagsKeepEmpty(const std::string& text) {
    requirePerPlatform<bool>(text, false, true, false);
}

void checkPerPlatformDecimalsKeepEmpty(const std::string& text) {
    requirePerPlatform<double>(text, 0.6, 0.25, false);
}

void checkPlatformCodes(const std::string& text) {
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
}

void checkRatioPairs(const std::string& text) {
    const std::vector<tests::SlowCreditEntry> slow = tests::slowCreditList(text);
    std::size_t at = 0;
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

}  // namespace fuzz
