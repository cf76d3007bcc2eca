#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/differences/differences.h"

// The rooms that find differences. Each reports its changes one by one, so that they need not all be held in memory.

namespace ttconfig {

struct TextPair {
    const standin::SettingsText& before;
    const standin::SettingsText& after;
    const standin::PlatformData* platform = nullptr;  // the installed one, if it is to be consulted
};

// An answer from one text, and the place it comes from.
// NOLINTNEXTLINE(bugprone-exception-escape): moving a JSON value asserts what holds, and throws nothing
struct Said {
    Answer answer;
    std::optional<Place> place = std::nullopt;
};

// A change in the answer about the subject, or about the platform.
Change changeOf(ChangeTopic topic, std::string subject, std::string question, Said old, Said now);
Change changeOf(ChangeTopic topic, int platform, std::string question, Said old, Said now);

// Reports the change if the answers differ.
template <typename Subject>
void tellIfChanged(ChangeTopic topic, Subject subject, std::string question, Said old, Said now,
                   const ChangeSink& tell) {
    if (old.answer == now.answer) return;
    tell(changeOf(topic, std::move(subject), std::move(question), std::move(old), std::move(now)));
}

// The entries of one key; null for a text that does not have it.
struct EntryPair {
    const standin::SettingsEntry* before = nullptr;
    const standin::SettingsEntry* after = nullptr;

    // For every key whose value is read as text, an empty value means the same as a missing key.
    std::string_view oldValue() const { return before == nullptr ? std::string_view() : before->value; }
    std::string_view newValue() const { return after == nullptr ? std::string_view() : after->value; }
    bool sayTheSame() const { return oldValue() == newValue(); }

    std::optional<Place> oldPlace() const { return placeOf(before); }
    std::optional<Place> newPlace() const { return placeOf(after); }

private:
    static std::optional<Place> placeOf(const standin::SettingsEntry* entry) {
        return entry == nullptr ? std::optional<Place>() : valuePlace(*entry);
    }
};

inline EntryPair entriesOf(const TextPair& texts, const ttservice::internal::SettingKey& key) {
    return {texts.before.findEntry(key.section, key.key), texts.after.findEntry(key.section, key.key)};
}

// Whether the section is the same in both texts, word for word and in the same order.
bool haveSameEntries(const TextPair& texts, std::string_view section);

// Whether two numbers are the same answer. NaN counts as equal to NaN.
bool isSameNumber(double left, double right);

// limitchanges.cpp: order limits, block trades, rates.
void tellLimitChanges(const TextPair& texts, const ChangeSink& tell);

// namedrowchanges.cpp: bonds, and the subscription fees and combinations of futures products.
void tellBondChanges(const TextPair& texts, const ChangeSink& tell);
void tellProductChanges(const TextPair& texts, const ChangeSink& tell);

// cataloguechanges.cpp: algorithm products, types and strategies, the ETF broker client; funds with a fixed price.
void tellCatalogueChanges(const TextPair& texts, const ChangeSink& tell);
void tellFundChanges(const TextPair& texts, const ChangeSink& tell);

// singlevaluechanges.cpp: single values, and the units that follow from some of them.
void tellSingleValueChanges(const TextPair& texts, const ChangeSink& tell);

// switchchanges.cpp: the platform switches, platform by platform; see tellPlatformChanges().
struct SwitchChange {
    int platform = 0;
    std::string_view key;
    std::size_t number = 0;  // in the table of switches; their count if the key is not in it
    bool after = false;
    std::optional<Place> oldPlace;
    std::optional<Place> newPlace;
};

// Sorted by platform, then by position in the table, then by key. If wanted is empty, all platforms are included.
std::vector<SwitchChange> switchChanges(const TextPair& texts, const std::vector<int>& wanted);
Change asChange(const SwitchChange& found);

// platformvaluechanges.cpp, platformlistchanges.cpp: the other answers of a platform, topic by topic.
void tellPlatformValueChanges(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell);
void tellPlatformListChanges(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell);

// platformvaluechanges.cpp: the values of one platform that differ from the value of all platforms that are not named,
// as changes from that value to its own.
void tellSpecialValues(const standin::SettingsText& text, int platform, const ChangeSink& tell);

// platformchanges.cpp: every question that takes a platform ID, platform by platform; the platforms that no setting
// names come last, together. wanted is sorted; if it is empty, all platforms are reported.
void tellPlatformChanges(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell);

// Whether the platform is to be reported.
bool isWanted(const std::vector<int>& wanted, int platform);

}  // namespace ttconfig
