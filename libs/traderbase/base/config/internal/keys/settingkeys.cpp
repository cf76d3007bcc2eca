// Key catalogue: describes in words how the value of a key is written.
// Entry points: describe(); the rows themselves are in the header.
// Covered by tests/config/loadorder_test.cpp.

#include "traderbase/base/config/internal/keys/settingkeys.h"

namespace ttservice::internal {

std::string_view describe(ValueGrammar grammar) {
    switch (grammar) {
        case ValueGrammar::Flag:
            return "flag: 1 is yes, any other number no";
        case ValueGrammar::Integer:
            return "whole number";
        case ValueGrammar::Decimal:
            return "decimal number";
        case ValueGrammar::Text:
            return "text";
        case ValueGrammar::PerPlatformFlag:
            return "per platform: ID:0 or ID:1, and 0 or 1 alone for the others, separated by ;";
        case ValueGrammar::PerPlatformInteger:
            return "per platform: ID:number, and a number alone for the others, separated by ;";
        case ValueGrammar::PerPlatformFlagKeepEmpty:
            return "per platform: ID:0 or ID:1, and 0 or 1 alone for the others, separated by ;, each of which counts";
        case ValueGrammar::PerPlatformDecimalKeepEmpty:
            return "per platform: ID:decimal, and a decimal alone for the others, separated by ;, each of which counts";
        case ValueGrammar::OrderLimitRow:
            return "MARKET-CODE or MARKET-CATEGORY, separated by , = quantity,unit";
        case ValueGrammar::BlockTradeLimitRow:
            return "MARKET-CATEGORY, separated by , = quantity,unit,amount";
        case ValueGrammar::StockRateRow:
            return "MARKET-CODE or MARKET-CATEGORY, separated by , = six decimals and a whole number, separated by ,";
        case ValueGrammar::ConnectRateRow:
            return "MARKET-CODE or MARKET-CATEGORY, separated by , = fourteen decimals, separated by ,";
        case ValueGrammar::FixedIncomeNumbers:
            return "a decimal and six whole numbers, separated by ,";
        case ValueGrammar::PlatformRatioPairs:
            return "ID:first ratio,second ratio, separated by ;";
        case ValueGrammar::PlatformCodes:
            return "ID:code,code,..., separated by ;";
        case ValueGrammar::ProductGroups:
            return "groups separated by ;, each of products separated by ,";
        case ValueGrammar::MarketCodes:
            return "market:code,code,..., separated by ;";
        case ValueGrammar::Funds:
            return "market and code as one text, separated by ,; or ALL alone for every money-market fund";
        case ValueGrammar::KeyAlone:
            return "nothing: the key says it";
        case ValueGrammar::Contracts:
            return "product:text,number,integer,integer,credit flag, separated by ;";
        case ValueGrammar::ContractTypes:
            return "product:type|type|..., separated by ;";
        case ValueGrammar::PairsBySemicolon:
            return "first:second, separated by ;";
        case ValueGrammar::TextsByCommaDropEmpty:
            return "texts separated by ,, empty ones not counted";
        case ValueGrammar::TextsByComma:
            return "texts separated by ,, empty ones counted";
        case ValueGrammar::TextsBySemicolon:
            return "texts separated by ;, empty ones counted";
        case ValueGrammar::TagAndTimes:
            return "tag:time,time,...";
    }
    return "";
}

}  // namespace ttservice::internal
