#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/calls/storerecords.h"
#include "ttconfig/reasons/explainedcalls.h"

// Building blocks of explanations.

namespace ttconfig {

// The value as the call table returns it to a session's first request.
template <typename Value>
Answer answerOf(const Value& value) {
    Records records;
    return ToJson<Value>::to(value, records);
}

// "needmaxamount in [setting]"
std::string nameOf(std::string_view section, std::string_view key);
std::string nameOf(const ttservice::internal::SettingKey& key);

// "platform 12"
std::string platformName(int platform);

// "would be true"
std::string wouldBe(const Answer& answer);

// An explanation without losing candidates.
template <typename Value>
Explanation decided(const Value& value, Reason reason, std::string rule, std::optional<Place> place = std::nullopt) {
    return {answerOf(value), reason, std::move(rule), place, {}, 0};
}

// Appends a losing candidate, or only counts it once kMostLost are listed.
void lose(Explanation& explanation, Candidate candidate);

// The same, but makes the candidate only if it is listed: one value may have a million of them.
template <typename Make, typename = std::enable_if_t<std::is_invocable_r_v<Candidate, Make>>>
void lose(Explanation& explanation, Make&& make) {
    if (explanation.lost.size() < kMostLost) {
        explanation.lost.push_back(make());
    } else {
        ++explanation.furtherLost;
    }
}

// Adds the later entries of a repeated key, which no load reads.
void addRepeats(const Question& question, std::string_view section, std::string_view key, Explanation& explanation);
void addRepeats(const Question& question, const ttservice::internal::SettingKey& key, Explanation& explanation);

// The candidate for a catalogue key that is not in the settings file.
Candidate missingKey(const ttservice::internal::SettingKey& key);

// The entry that counts for a catalogue key; null if there is none.
inline const standin::SettingsEntry* entryOf(const Question& question, const ttservice::internal::SettingKey& key) {
    return question.settings().findEntry(key.section, key.key);
}

// Explains an answer by the value of a key, through explain(row). If the key is missing, the answer is `without`.
template <typename Value, typename Explain>
Explanation explainedByKey(const Question& question, const ttservice::internal::SettingKey& key, const Value& without,
                           Explain&& explain) {
    const standin::SettingsEntry* row = entryOf(question, key);
    if (row == nullptr) return decided(without, Reason::KeyAbsent, "there is no key " + nameOf(key));
    Explanation explanation = explain(*row);
    addRepeats(question, key, explanation);
    return explanation;
}

}  // namespace ttconfig
