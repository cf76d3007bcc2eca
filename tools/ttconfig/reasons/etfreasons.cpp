// Reasons for the ETF broker client: which platform's counter is queried for ETF data, and when.
// Entry points: addEtfReasons().
// Covered by reasons/explainer_test.cpp and explaining/explainedanswers_test.cpp in tests/tools/ttconfig/.

#include "traderbase/base/config/internal/products/catalogueentries.h"
#include "ttconfig/edits/pieceedits.h"
#include "ttconfig/reasons/explainedcalls.h"
#include "ttconfig/reasons/telling.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

namespace internal = ttservice::internal;
using ttservice::internal::keys::etfBrokerClient;

// The key's value, and how a load reads it.
struct EtfClient {
    const standin::SettingsEntry* row;
    internal::TagEntry entry{{}, internal::EntryOutcome::KeptFormer, {}, {}};

    explicit EtfClient(const Question& question) : row(entryOf(question, etfBrokerClient)) {
        if (row != nullptr) entry = internal::tagEntry(row->value);
    }

    bool isSet() const { return internal::isStored(entry.outcome); }
};

// Explains an answer by the key's value, or by the state of a new store if the value cannot be read.
template <typename Value>
Explanation byClient(const Question& question, const EtfClient& client, const Value& value, Reason reason,
                     const std::string& rule, std::string_view piece) {
    return explainedByKey(question, etfBrokerClient, value, [&](const standin::SettingsEntry& row) {
        if (client.isSet()) return decided(value, reason, rule, placeInValue(row, piece));
        Explanation explanation = decided(value, Reason::ConstructedValue, "no load has set it");
        lose(explanation, {Reason::FileValue, nameOf(etfBrokerClient), valuePlace(row),
                           std::string(internal::describe(client.entry.outcome))});
        return explanation;
    });
}

Explanation explainTag(const Question& question) {
    const EtfClient client(question);
    return byClient(question, client, std::string(client.entry.tag), Reason::FileValue,
                    nameOf(etfBrokerClient) + ", what stands in front of the \":\"", client.entry.tag);
}

Explanation explainTimes(const Question& question) {
    const EtfClient client(question);
    std::vector<std::string> times;
    internal::forEachTimeOf(client.entry, [&times](std::string_view time) { times.emplace_back(time); });
    return byClient(question, client, times, Reason::FileValue,
                    nameOf(etfBrokerClient) + ", what stands behind the first \":\"", client.entry.times);
}

Explanation explainCanQuery(const Question& question) {
    const EtfClient client(question);
    const std::string id = std::to_string(question.number(0));
    const bool isTag = client.entry.tag == id;
    return byClient(question, client, isTag, isTag ? Reason::Listed : Reason::NotListed,
                    "the tag of " + nameOf(etfBrokerClient) + " is " + shownText(client.entry.tag) +
                        (isTag ? ": platform " : ", not platform ") + id,
                    client.entry.tag);
}

// Suggests a value with this tag and these times. Pass the current text for the half that should stay.
void suggestClient(const Question& question, const std::string& tag, std::string_view times, Edits& edits) {
    const EtfClient client(question);
    edits.setValue(etfBrokerClient, tag + ":" + std::string(times));
    if (!client.isSet()) return;
    // Text after the times is ignored, so it may stay.
    const std::size_t used = client.entry.tag.size() + 1 + client.entry.times.size();
    edits.setValue(etfBrokerClient, tag + ":" + std::string(times) + std::string(client.row->value.substr(used)));
}

void suggestTag(const Question& question, const Wanted& wanted, Edits& edits) {
    edits.reaching("the platform that is asked for ETF data");
    suggestClient(question, wanted.text(), EtfClient(question).entry.times, edits);
    edits.reaching("the times");
    if (wanted.text().empty()) edits.removeLine(etfBrokerClient);
}

void suggestTimes(const Question& question, const Wanted& wanted, Edits& edits) {
    const std::vector<std::string> times = wanted.items();
    WantedPieces pieces = wantedTexts(times, ',', WantedPieces::Order::AsWritten);
    pieces.emptyIsOnePiece = true;
    const EtfClient client(question);
    if (client.isSet()) suggestPieces(*client.row, client.entry.times, pieces, edits);
    edits.reaching("the tag");
    edits.setValue(etfBrokerClient, ":" + wholeValue(pieces));
    // A value without times may be the tag that the wanted times belong to.
    if (client.row != nullptr) edits.setValue(*client.row, std::string(client.row->value) + ":" + wholeValue(pieces));
    if (!times.empty()) return;
    edits.setValue(etfBrokerClient, client.entry.tag);
    edits.removeLine(etfBrokerClient);
}

void suggestCanQuery(const Question& question, const Wanted& wanted, Edits& edits) {
    const auto flag = wanted.flag();
    if (!flag) return;
    const EtfClient client(question);
    edits.reaching("the platform that is asked so far");
    if (*flag) {
        suggestClient(question, std::to_string(question.number(0)), client.entry.times, edits);
        return;
    }
    edits.reaching("the tag");
    suggestClient(question, "", client.entry.times, edits);
    edits.reaching("the tag and the times");
    edits.removeLine(etfBrokerClient);
}

}  // namespace

void addEtfReasons(ExplainedCalls& calls) {
    calls.add("getETFBrokerCLientTag", {explainTag, suggestTag});
    calls.add("getETFBrokerCLientQueryTimes", {explainTimes, suggestTimes});
    calls.add("isCanQueryETFFromCounter", {explainCanQuery, suggestCanQuery});
}

}  // namespace ttconfig
