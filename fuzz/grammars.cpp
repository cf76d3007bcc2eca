// Each value grammar on any bytes, held against its slow oracle. One input is a value of all of them.

#include <set>
#include <string>

#include "fuzz/grammarchecks.h"
#include "fuzz/target.h"
#include "standin/settingstext.h"
#include "tests/support/slowgrammars.h"
#include "tests/support/slowsettings.h"
#include "traderbase/base/config/internal/keys/settingkeys.h"

namespace {

using fuzz::require;
using ttservice::internal::ValueGrammar;

// What no reader takes apart: the reader of the settings file says where it begins and ends. The text stands behind a
// key, so that its first line is a value, and what other lines it has are lines of the section.
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

// No default: a new grammar wants a check before this compiles.
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
    // Numbers are more often parts of a value than the whole of it.
    for (const std::string& piece : tests::slowPieces(text, ',')) {
        checkNumbers(piece);
        checkInteger(piece);
        checkDecimal(piece);
    }
}

TT_FUZZ_TARGET
