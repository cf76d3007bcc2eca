// Reasons of the lists of algorithms: which types, strategies and HTTP products a value lists.
// Doors: addListReasons().
// Owns: nothing.
// Covered by tests/tools/ttconfig/explainer_test.cpp and explainedanswers_test.cpp.

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
using internal::SettingKey;

std::string joined(const std::vector<std::string>& pieces, char separator) {
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        text += (i == 0 ? "" : std::string(1, separator)) + pieces[i];
    return text;
}

// --- sets of types

struct TypeList {
    const SettingKey& key;
    char separator;
};

constexpr TypeList kAlgoTypes{keys::algoTypes, ';'};
constexpr TypeList kBuySellHideTypes{keys::buySellHideAlgoTypes, ','};

Explanation explainTypes(const Question& question, const TypeList& list) {
    const standin::SettingsEntry* row = entryOf(question, list.key);
    std::set<std::string> types;
    if (row == nullptr) return decided(types, Reason::KeyAbsent, "there is no key " + nameOf(list.key));
    Explanation explanation;
    explanation.reason = Reason::FileValue;
    explanation.rule = nameOf(list.key) + ", each type once and in order of their bytes";
    explanation.place = valuePlace(*row);
    if (row->value.empty()) explanation.rule = nameOf(list.key) + " is empty: no type at all";
    internal::splitKeepEmpty(row->value, list.separator, [&](std::string_view type) {
        if (row->value.empty()) return;
        const bool isNew = types.emplace(type).second;
        if (isNew) return;
        lose(explanation,
             {Reason::Listed, "the type " + shownText(type) + " once more", placeInValue(*row, type), "counts once"});
    });
    explanation.answer = answerOf(types);
    addRepeats(question, list.key, explanation);
    return explanation;
}

void suggestOneReading(const Question& question, const TypeList& list, const std::vector<std::string>& types,
                       Edits& edits) {
    WantedPieces pieces;
    pieces.separator = list.separator;
    pieces.order = WantedPieces::Order::LastOfName;
    pieces.count = types.size();
    pieces.counts = [](std::string_view) { return true; };
    pieces.says = [types](std::size_t number, std::string_view piece) { return piece == types[number]; };
    pieces.names = pieces.says;
    pieces.written = [types](std::size_t number, std::string_view) { return types[number]; };
    suggestPieces(question.settings(), list.key.section, list.key.key, pieces, edits);
}

// What is shown as text may be one type with a "," in it.
void suggestTypes(const Question& question, const TypeList& list, const Wanted& wanted, Edits& edits) {
    const std::vector<std::string> types = wanted.items();
    suggestOneReading(question, list, types, edits);
    if (!wanted.json() && types.size() > 1) suggestOneReading(question, list, {wanted.text()}, edits);
}

ExplainedCall typesCall(const TypeList& list) {
    return {[&list](const Question& question) { return explainTypes(question, list); },
            [&list](const Question& question, const Wanted& wanted, Edits& edits) {
                suggestTypes(question, list, wanted, edits);
            }};
}

// --- HTTP products

Explanation explainHttpProduct(const Question& question) {
    const SettingKey& key = keys::httpProductIds;
    const std::string& productId = question.text(0);
    const standin::SettingsEntry* row = entryOf(question, key);
    if (row == nullptr) return decided(false, Reason::KeyAbsent, "there is no key " + nameOf(key));
    const std::string what = "product " + shownText(productId);
    Explanation explanation =
        decided(false, Reason::NotListed, nameOf(key) + " does not list " + what, valuePlace(*row));
    internal::splitDropEmpty(row->value, ',', [&](std::string_view piece) {
        if (piece != productId) return;
        if (explanation.reason == Reason::Listed) {
            lose(explanation, {Reason::Listed, what + " once more", placeInValue(*row, piece), "changes nothing"});
        } else {
            explanation = decided(true, Reason::Listed, nameOf(key) + " lists " + what, placeInValue(*row, piece));
        }
    });
    addRepeats(question, key, explanation);
    return explanation;
}

void suggestHttpProduct(const Question& question, const Wanted& wanted, Edits& edits) {
    const std::string& productId = question.text(0);
    const standin::SettingsEntry* row = entryOf(question, keys::httpProductIds);
    const auto flag = wanted.flag();
    if (!flag) return;
    if (*flag) {
        const bool isAlone = row == nullptr || row->value.empty();
        edits.setValue(keys::httpProductIds, isAlone ? productId : std::string(row->value) + "," + productId);
        return;
    }
    if (row == nullptr) return;
    std::vector<std::string> kept;
    internal::splitDropEmpty(row->value, ',', [&](std::string_view piece) {
        if (piece != productId) kept.emplace_back(piece);
    });
    edits.setValue(*row, joined(kept, ','));
    edits.reaching("every product that the line lists");
    edits.removeLine(*row);
}

// --- T0 strategies

Explanation explainStrategies(const Question& question) {
    const SettingKey& key = keys::t0Strategies;
    const standin::SettingsEntry* row = entryOf(question, key);
    std::vector<std::pair<std::string, std::string>> strategies;
    if (row == nullptr) return decided(strategies, Reason::KeyAbsent, "there is no key " + nameOf(key));
    Explanation explanation;
    internal::forEachEntry(row->value, internal::pairEntry, [&](const internal::PairEntry& entry) {
        if (internal::isStored(entry.outcome)) {
            strategies.emplace_back(entry.first, entry.second);
        } else if (!entry.text.empty()) {
            lose(explanation, {Reason::Row, "the entry " + shownText(entry.text), placeInValue(*row, entry.text),
                               std::string(internal::describe(entry.outcome))});
        }
    });
    explanation.answer = answerOf(strategies);
    explanation.reason = Reason::FileValue;
    explanation.rule = nameOf(key) + ", its pairs in the order written";
    explanation.place = valuePlace(*row);
    addRepeats(question, key, explanation);
    return explanation;
}

void suggestStrategies(const Question& question, const Wanted& wanted, Edits& edits) {
    std::vector<std::pair<std::string, std::string>> pairs;
    for (const Answer& pair : wanted.structure()) {
        if (!pair.is_array() || pair.size() != 2) return;
        pairs.emplace_back(answerText(pair[0]), answerText(pair[1]));
    }
    WantedPieces pieces;
    pieces.separator = ';';
    pieces.count = pairs.size();
    pieces.counts = [](std::string_view piece) { return internal::isStored(internal::pairEntry(piece).outcome); };
    pieces.says = [pairs](std::size_t number, std::string_view piece) {
        const internal::PairEntry entry = internal::pairEntry(piece);
        return entry.first == pairs[number].first && entry.second == pairs[number].second;
    };
    pieces.written = [pairs](std::size_t number, std::string_view) {
        return pairs[number].first + ":" + pairs[number].second;
    };
    suggestPieces(question.settings(), keys::t0Strategies.section, keys::t0Strategies.key, pieces, edits);
}

}  // namespace

void addListReasons(ExplainedCalls& calls) {
    calls.add("getAlgoTypes", typesCall(kAlgoTypes));
    calls.add("getBuySellHideAlgoTypes", typesCall(kBuySellHideTypes));
    calls.add("isHttpProductID", {explainHttpProduct, suggestHttpProduct});
    calls.add("getT0Strategy", {explainStrategies, suggestStrategies});
}

}  // namespace ttconfig
