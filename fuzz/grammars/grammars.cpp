// Every value grammar on arbitrary bytes, compared with its slow oracle. Each input is used as a value of all grammars.

#include <set>
#include <string>

#include "fuzz/grammars/grammarchecks.h"
#include "fuzz/support/target.h"
#include "standin/settingstext.h"
#include "tests/support/slowgrammars.h"
#include "tests/support/slowsettings.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"

namespace {

using fuzz::require;
using ttservice::internal::ValueGrammar;

// Values that are used whole: only the reader of the settings file decides where they start and end. The text follows a
// key, so its first line is a value and its other lines are lines of the section.
void checkLines(const std::string& text) {
    const std::string bytes = "[section]\nkey=" + text;
    const standin::SettingsText read(bytes);
    const tests::Sections slow = tests::slowlyRead(bytes);
    const standin::SettingsSection* section = read.findSection("section");
    require(section != nullptr && !slow.empty(), "the section is there", text);
    auto expected = slow.front().entries.begin();
    for (const standin::SettingsEntry& entry : section->entries) {
        if (entry.repeated) continue;
        require(expected != slow.front().entries.end(), "there are no more keys", text);
        require(entry.key == expected->first && entry.value == expected->second, "texts agree", text);
        ++expected;
    }
    require(expected == slow.front().entries.end(), "there are no fewer keys", text);
}

// No default: a new grammar does not compile without a check.
void checkGrammar(ValueGrammar grammar, const std::string& text) {
    switch (grammar) {
        case ValueGrammar::Flag:
        case ValueGrammar::Integer:
            return fuzz::checkInteger(text);
        case ValueGrammar::Decimal:
            return fuzz::checkDecimal(text);
        case ValueGrammar::Text:
        case ValueGrammar::KeyAlone:
            return checkLines(text);
        case ValueGrammar::PerPlatformFlag:
            return fuzz::checkPerPlatformFlags(text);
        case ValueGrammar::PerPlatformInteger:
            return fuzz::checkPerPlatformIntegers(text);
        case ValueGrammar::PerPlatformFlagKeepEmpty:
            return fuzz::checkPerPlatformFlagsKeepEmpty(text);
        case ValueGrammar::PerPlatformDecimalKeepEmpty:
            return fuzz::checkPerPlatformDecimalsKeepEmpty(text);
        case ValueGrammar::OrderLimitRow:
            return fuzz::checkOrderLimitRow(text);
        case ValueGrammar::BlockTradeLimitRow:
            return fuzz::checkBlockTradeLimitRow(text);
        case ValueGrammar::StockRateRow:
            return fuzz::checkStockRateRow(text);
        case ValueGrammar::ConnectRateRow:
            return fuzz::checkConnectRateRow(text);
        case ValueGrammar::FixedIncomeNumbers:
            return fuzz::checkFixedIncomeNumbers(text);
        case ValueGrammar::PlatformRatioPairs:
            return fuzz::checkRatioPairs(text);
        case ValueGrammar::PlatformCodes:
            return fuzz::checkPlatformCodes(text);
        case ValueGrammar::ProductGroups:
            return fuzz::checkProductGroups(text);
        case ValueGrammar::MarketCodes:
            return fuzz::checkMarketCodes(text);
        case ValueGrammar::Funds:
            return fuzz::checkFunds(text);
        case ValueGrammar::Contracts:
            return fuzz::checkContracts(text);
        case ValueGrammar::ContractTypes:
            return fuzz::checkContractTypes(text);
        case ValueGrammar::PairsBySemicolon:
            return fuzz::checkPairs(text);
        case ValueGrammar::TextsByCommaDropEmpty:
            return fuzz::checkTextsDropEmpty(text, ',');
        case ValueGrammar::TextsByComma:
            return fuzz::checkTexts(text, ',');
        case ValueGrammar::TextsBySemicolon:
            return fuzz::checkTexts(text, ';');
        case ValueGrammar::TagAndTimes:
            return fuzz::checkTagAndTimes(text);
    }
}

std::set<ValueGrammar> grammarsOfKeys() {
    std::set<ValueGrammar> grammars;
    for (const auto& row : ttservice::internal::kSettingKeys)
        grammars.insert(row.grammar);
    return grammars;
}

}  // namespace

void fuzz::runInput(std::string_view input) {
    static const std::set<ValueGrammar> grammars = grammarsOfKeys();
    const std::string text(input);
    for (const ValueGrammar grammar : grammars)
        checkGrammar(grammar, text);
    checkSplitting(text);
    checkPlatformList(text);
    checkLimitKey(text);
    checkNumbers(text);
    // Numbers are more often parts of a value than whole values.
    for (const std::string& piece : tests::slowPieces(text, ',')) {
        checkNumbers(piece);
        checkInteger(piece);
        checkDecimal(piece);
    }
}

TT_FUZZ_TARGET
