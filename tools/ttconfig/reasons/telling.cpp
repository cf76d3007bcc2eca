// Wording of explanations: how they name keys and platforms, and how they list losing candidates.
// Covered by tests/tools/ttconfig/reasons/explainer_test.cpp.

#include "ttconfig/reasons/telling.h"

#include <utility>

#include "ttconfig/text/answertext.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

constexpr std::size_t kMostNameBytes = 60;

}  // namespace

std::string nameOf(std::string_view section, std::string_view key) {
    return cutText(key, kMostNameBytes) + " in [" + cutText(section, kMostNameBytes) + "]";
}

std::string nameOf(const ttservice::internal::SettingKey& key) {
    return nameOf(key.section, key.key);
}

std::string platformName(int platform) {
    return "platform " + std::to_string(platform);
}

std::string wouldBe(const Answer& answer) {
    return "would be " + cutText(answerText(answer), kMostNameBytes);
}

void lose(Explanation& explanation, Candidate candidate) {
    if (explanation.lost.size() < kMostLost) {
        explanation.lost.push_back(std::move(candidate));
    } else {
        ++explanation.furtherLost;
    }
}

void addRepeats(const Question& question, std::string_view section, std::string_view key, Explanation& explanation) {
    for (const standin::SettingsEntry* entry : question.facts.repeatsOf(section, key)) {
        lose(explanation, {Reason::FileValue, nameOf(section, key) + " once more", keyPlace(*entry),
                           "of a repeated key the first value counts"});
    }
}

void addRepeats(const Question& question, const ttservice::internal::SettingKey& key, Explanation& explanation) {
    addRepeats(question, key.section, key.key, explanation);
}

Candidate missingKey(const ttservice::internal::SettingKey& key) {
    return {Reason::FileValue, nameOf(key), std::nullopt, "there is no such key"};
}

}  // namespace ttconfig
