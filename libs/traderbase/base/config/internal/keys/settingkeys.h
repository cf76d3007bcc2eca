#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "traderbase/base/config/internal/text/strictnumbers.h"

// The catalogue of settings keys. Everything that readers, the tool and the reference page know about a key is stated
// once, in settingkeys.def.

namespace ttservice::internal {

// How a value is written. platformlist.h and perplatformlist.h hold the grammars that several keys share; each topic
// holds the grammars of its own rows.
enum class ValueGrammar {
    Flag,                // an integer; 1 means yes, any other number no
    Integer,             // a decimal integer
    Decimal,             // a decimal number
    Text,                // used as written
    PerPlatformFlag,     // items platform:0 or platform:1, and a default, separated by ";"
    PerPlatformInteger,  // items platform:number, and a default, separated by ";"

    // Limits and credit. The grammars are in limitrows.h and creditlists.h; perplatformlist.h has the KeepEmpty ones.
    PerPlatformFlagKeepEmpty,     // like PerPlatformFlag, but an empty item counts wherever it stands
    PerPlatformDecimalKeepEmpty,  // the same for decimal numbers
    OrderLimitRow,                // quantity,unit
    BlockTradeLimitRow,           // quantity,unit,amount
    StockRateRow,                 // six decimals and an integer
    ConnectRateRow,               // fourteen decimals
    FixedIncomeNumbers,           // a decimal and six integers
    PlatformRatioPairs,           // items platform:first,second, separated by ";"
    PlatformCodes,                // items platform:codes, separated by ";", with the codes separated by ","

    // Catalogues. The grammars are in catalogueentries.h and producttables.h.
    ProductGroups,          // groups separated by ";", each a list of products separated by ","
    MarketCodes,            // items market:codes, separated by ";", with the codes separated by ","
    Funds,                  // market and code joined without a separator, items separated by ",", or ALL alone
    KeyAlone,               // the key is the setting; the value is not read
    Contracts,              // items product:text,number,integer,integer,flag, separated by ";"
    ContractTypes,          // items product:types, separated by ";", with the types separated by "|"
    PairsBySemicolon,       // items first:second, separated by ";"
    TextsByCommaDropEmpty,  // texts separated by ","; empty ones do not count
    TextsByComma,           // texts separated by ","; empty ones count
    TextsBySemicolon,       // texts separated by ";"; empty ones count
    TagAndTimes,            // a text, ":", and texts separated by ","
};

// The section of single keys; each of its keys is in the switch table as well.
inline constexpr std::string_view kMainSection = "setting";

struct SettingKey {
    std::size_t number;  // its row in settingkeys.def, counted from 0
    std::string_view section;
    std::string_view key;
    ValueGrammar grammar;
    std::string_view whenMissing;
    std::string_view feeds;
    std::string_view meaning;
};

namespace keys {
namespace numbers {
enum Number : std::size_t {
#define TT_SETTING_KEY(id, section, key, grammar, missing, feeds, meaning) id,
#include "traderbase/base/config/settingkeys.def"
};
}  // namespace numbers

#define TT_SETTING_KEY(id, section, key, grammar, missing, feeds, meaning) \
    inline constexpr SettingKey id{numbers::id, section, key, ValueGrammar::grammar, missing, feeds, meaning};
#include "traderbase/base/config/settingkeys.def"
}  // namespace keys

inline constexpr SettingKey kSettingKeys[] = {
#define TT_SETTING_KEY(id, section, key, grammar, missing, feeds, meaning) keys::id,
#include "traderbase/base/config/settingkeys.def"
};

constexpr bool everySettingKeyIsExplained() {
    for (const SettingKey& row : kSettingKeys) {
        if (row.section.empty() || row.key.empty() || row.meaning.empty() || row.meaning.back() != '.') return false;
    }
    return true;
}
static_assert(everySettingKeyIsExplained(), "a settings key needs a section, a key and a sentence");

constexpr bool everySettingKeyStandsOnce() {
    for (const SettingKey& row : kSettingKeys) {
        int found = 0;
        for (const SettingKey& other : kSettingKeys)
            found += row.section == other.section && row.key == other.key;
        if (found != 1) return false;
    }
    return true;
}
static_assert(everySettingKeyStandsOnce(), "a settings key stands twice in settingkeys.def");

// Values given platform by platform, as items with a default.
constexpr bool isPerPlatform(ValueGrammar grammar) {
    return grammar == ValueGrammar::PerPlatformFlag || grammar == ValueGrammar::PerPlatformInteger ||
           grammar == ValueGrammar::PerPlatformFlagKeepEmpty || grammar == ValueGrammar::PerPlatformDecimalKeepEmpty;
}

// Whether every ";" of such a value separates two items; otherwise a run of them counts as one.
constexpr bool keepsEmptyItems(ValueGrammar grammar) {
    return grammar == ValueGrammar::PerPlatformFlagKeepEmpty || grammar == ValueGrammar::PerPlatformDecimalKeepEmpty;
}

// The value for a missing key, as the type that its reader stores.
template <typename Value>
Value valueWhenMissing(const SettingKey& row) {
    return strictValue<Value>(row.whenMissing).value_or(Value());
}

// The grammar in words, for listings and the reference page.
std::string_view describe(ValueGrammar grammar);

}  // namespace ttservice::internal
