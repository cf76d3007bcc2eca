// Reasons for the algorithm lists: which types, strategies and HTTP products a value lists.
// Entry points: addListReasons().
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include <set>

#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "ttconfig/edits/pieceedits.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
namespace keys = ttservice::internal::keys;

// --- sets of types

using TypeList = internal::EntryList<std::string_view>;

Explanation explainTypes(const Question& question, const TypeList& list) {
    std::set<std::string> types;
    return explainedByKey(question, list.key, types, [&](const standin::SettingsEntry& row) {
        Explanation explanation;
        explanation.reason = Reason::FileValue;
        explanation.rule = nameOf(list.key) + (row.value.empty() ? " is empty: no type at all"
                                                                 : ", each type once and in order of their bytes");
        explanation.place = valuePlace(row);
        internal::forEachEntry(list, row.value, [&](std::string_view type) {
            if (types.emplace(type).second) return;
            lose(explanation, {Reason::Listed, "the type " + shownText(type) + " once more", placeInValue(row, type),
                               "counts once"});
        });
        explanation.answer = answerOf(types);
        return explanation;
    });
}

// In a wanted answer written as text, a "," may separate two types or be part of one, so both are tried.
void suggestTypes(const Question& question, const TypeList& list, const Wanted& wanted, Edits& edits) {
    const auto suggest = [&](std::vector<std::string> types) {
        suggestPieces(question.settings(), list.key,
                      wantedTexts(std::move(types), list.separator, WantedPieces::Order::LastOfName), edits);
    };
    const std::vector<std::string> types = wanted.items();
    suggest(types);
    if (!wanted.json() && types.size() > 1) suggest({wanted.text()});
}

ExplainedCall typesCall(const TypeList& list) {
    return {[&list](const Question& question) { return explainTypes(question, list); },
            [&list](const Question& question, const Wanted& wanted, Edits& edits) {
                suggestTypes(question, list, wanted, edits);
            }};
}

// --- HTTP products

Explanation explainHttpProduct(const Question& question) {
    const std::string& productId = question.text(0);
    return explainedByKey(question, keys::httpProductIds, false, [&](const standin::SettingsEntry& row) {
        const std::string name = nameOf(keys::httpProductIds);
        const std::string what = "product " + shownText(productId);
        Explanation explanation = decided(false, Reason::NotListed, name + " does not list " + what, valuePlace(row));
        internal::forEachEntry(internal::kHttpProducts, row.value, [&](std::string_view piece) {
            if (piece != productId) return;
            if (explanation.reason == Reason::Listed) {
                lose(explanation, {Reason::Listed, what + " once more", placeInValue(row, piece), "changes nothing"});
            } else {
                explanation = decided(true, Reason::Listed, name + " lists " + what, placeInValue(row, piece));
            }
        });
        return explanation;
    });
}

void suggestHttpProduct(const Question& question, const Wanted& wanted, Edits& edits) {
    const std::string& productId = question.text(0);
    const auto flag = wanted.flag();
    if (!flag) return;
    if (*flag) return edits.addPiece(keys::httpProductIds, internal::kHttpProducts.separator, productId);
    const standin::SettingsEntry* row = entryOf(question, keys::httpProductIds);
    if (row == nullptr) return;
    edits.setValue(*row, withoutPieces(row->value, internal::kHttpProducts.separator,
                                       [&](std::string_view piece) { return piece.empty() || piece == productId; }));
    edits.reaching("every product that the line lists");
    edits.removeLine(*row);
}

// --- T0 strategies

using Strategies = std::vector<std::pair<std::string, std::string>>;

Explanation explainStrategies(const Question& question) {
    return explainedByKey(question, keys::t0Strategies, Strategies(), [&](const standin::SettingsEntry& row) {
        Strategies strategies;
        Explanation explanation;
        internal::forEachEntry(internal::kT0Strategies, row.value, [&](const internal::PairEntry& entry) {
            if (internal::isStored(entry.outcome)) {
                strategies.emplace_back(entry.first, entry.second);
            } else if (!entry.text.empty()) {
                lose(explanation, {Reason::Row, "the entry " + shownText(entry.text), placeInValue(row, entry.text),
                                   std::string(internal::describe(entry.outcome))});
            }
        });
        explanation.answer = answerOf(strategies);
        explanation.reason = Reason::FileValue;
        explanation.rule = nameOf(keys::t0Strategies) + ", its pairs in the order written";
        explanation.place = valuePlace(row);
        return explanation;
    });
}

void suggestStrategies(const Question& question, const Wanted& wanted, Edits& edits) {
    Strategies pairs;
    for (const Answer& pair : wanted.structure()) {
        if (!pair.is_array() || pair.size() != 2) return;
        pairs.emplace_back(answerText(pair[0]), answerText(pair[1]));
    }
    WantedPieces pieces;
    pieces.separator = internal::kT0Strategies.separator;
    pieces.count = pairs.size();
    pieces.counts = [](std::string_view piece) { return internal::isStored(internal::pairEntry(piece).outcome); };
    pieces.says = [pairs](std::size_t number, std::string_view piece) {
        const internal::PairEntry entry = internal::pairEntry(piece);
        return entry.first == pairs[number].first && entry.second == pairs[number].second;
    };
    pieces.written = [pairs](std::size_t number, std::string_view) {
        return pairs[number].first + ":" + pairs[number].second;
    };
    suggestPieces(question.settings(), keys::t0Strategies, pieces, edits);
}

}  // namespace

void addListReasons(ExplainedCalls& calls) {
    calls.add("getAlgoTypes", typesCall(internal::kAlgorithmTypes));
    calls.add("getBuySellHideAlgoTypes", typesCall(internal::kBuySellHideTypes));
    calls.add("isHttpProductID", {explainHttpProduct, suggestHttpProduct});
    calls.add("getT0Strategy", {explainStrategies, suggestStrategies});
}

}  // namespace ttconfig
