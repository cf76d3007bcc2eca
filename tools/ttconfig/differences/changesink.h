#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/differences/differences.h"

// The rooms that differences are found in. Each tells its changes one by one, so that nobody has to hold them all.

namespace ttconfig {

struct TextPair {
    const standin::SettingsText& before;
    const standin::SettingsText& after;
    const standin::PlatformData* platform = nullptr;  // the installed one, where it is to be asked
};

// An answer of one text, and the place that says it.
// NOLINTNEXTLINE(bugprone-exception-escape): moving a JSON value asserts what holds, and throws nothing
struct Said {
    Answer answer;
    std::optional<Place> place = std::nullopt;
};

// A change of what is said about the subject, or about the platform.
Change changeOf(ChangeTopic topic, std::string subject, std::string question, Said old, Said now);
Change changeOf(ChangeTopic topic, int platform, std::string question, Said old, Said now);

// Tells the change, if it is one.
template <typename Subject>
void tellIfChanged(ChangeTopic topic, Subject subject, std::string question, Said old, Said now,
                   const ChangeSink& tell) {
    if (old.answer == now.answer) return;
    tell(changeOf(topic, std::move(subject), std::move(question), std::move(old), std::move(now)));
}

// The entries of one key, null where a text does not have it.
struct EntryPair {
    const standin::SettingsEntry* before = nullptr;
    const standin::SettingsEntry* after = nullptr;

    // An empty value says what a missing key does, for every key whose value is read as a text.
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

// Whether both texts say the same in the section, word for word and in the same order.
bool haveSameEntries(const TextPair& texts, std::string_view section);

// Whether two numbers are one answer: a number that is none is the same as itself here.
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
    std::size_t number = 0;  // in the table of the switches; their count for a key that is none of them
    bool after = false;
    std::optional<Place> oldPlace;
    std::optional<Place> newPlace;
};

// In the order of platform, then of the table, then of the key. Without wanted platforms, of all.
std::vector<SwitchChange> switchChanges(const TextPair& texts, const std::vector<int>& wanted);
Change asChange(const SwitchChange& found);

// platformvaluechanges.cpp, platformlistchanges.cpp: the other answers of a platform, topic by topic.
void tellPlatformValueChanges(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell);
void tellPlatformListChanges(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell);

// platformvaluechanges.cpp: the values of one platform that are not those of the platforms that are not named, as
// changes from those to its own.
void tellSpecialValues(const standin::SettingsText& text, int platform, const ChangeSink& tell);

// platformchanges.cpp: everything that is asked with a platform ID, platform by platform, those that no setting names
// together at the end. The wanted platforms are sorted; without any, all that are named are told.
void tellPlatformChanges(const TextPair& texts, const std::vector<int>& wanted, const ChangeSink& tell);

// Whether a platform is to be told about.
bool isWanted(const std::vector<int>& wanted, int platform);

}  // namespace ttconfig
