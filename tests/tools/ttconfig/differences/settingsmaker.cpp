#include "tests/tools/ttconfig/differences/settingsmaker.h"

#include <algorithm>
#include <map>

#include "traderbase/base/config/internal/switches/platformswitchtable.h"

namespace tests {

namespace {

using List = std::vector<std::string>;

const List kSeparators = {",", ",", ",", ",,", ", "};
const List kInts = {"0", "1", "+1", "007", "7", "500", "-3", "x", "", "2147483648", "200"};
const List kFlags = {"0", "1", "+1", "01", "2", "true", "-0"};
const List kDecimals = {"0", "0.5", ".5", "5e-1", "1", "1.0", "-2", "nan", "x", "1e400", "0.6"};

const List kSingleKeys = {"isshowmaxcanorder", "isshownewcompacts",        "useregistrules",       "useregistiporules",
                          "shusenewbondrules", "usernewshanghailoanrules", "szusenewbondrules",    "userglobalref",
                          "refLimit",          "useSplitPageOfStkCompact", "creditCompactDeferT3", "flowhistorydays"};
const List kFlagKeys = {"ist0forreturnstock", "isspxcreditmodules", "mainaccountcalculatorcompactsbydeal",
                        "isneedcheckassureenbuybalance"};
const List kIntKeys = {"renewalpts", "counterMaxCompactsRespNum", "usecounteripwanpos", "sm3platformids"};
const List kDecimalKeys = {"setavailable", "specialenablebalvolumestkexchangerate", "finenablebailratio"};
const List kBondKeys = {"shfixincomelimit", "shloanenclickdeallimit", "shloanenquirydeallimit", "shloanbiddeallimit"};

const List kCatalogueKeys = {"algomultcontractsetting", "algocontracttypes",      "algohttpproductid", "t0algotypes",
                             "samrtalgotypes",          "algotypedisablebuysell", "etfbrokerclienttag"};

// Sections of rows, and the number of fields in a row.
const std::map<std::string, std::size_t> kLimitSections = {
    {"StkExchangeOrderLimit", 2},       {"HGTExchangeOrderLimit", 2}, {"SgtExchangeOrderLimit", 2},
    {"StkExchangeDazongOrderLimit", 3}, {"StkExchangeRateLimit", 7},  {"HGTExchangeRateLimit", 14},
    {"SgtExchangeRateLimit", 14}};

bool holds(const List& list, const std::string& text) {
    return std::find(list.begin(), list.end(), text) != list.end();
}

}  // namespace

const List& SettingsMaker::platforms() {
    static const List kList = {"12", "+12", "15", "015", "7", "-5", "0", "-0", "5", "41"};
    return kList;
}

const List& SettingsMaker::unknownKeys() {
    static const List kList = {"nobodyknowsthis", "Needmaxamount"};
    return kList;
}

const List& SettingsMaker::markets() {
    static const List kList = {"SH", "sh", "SHO", "HGT", "HK", "NEEQ", "Sgt"};
    return kList;
}

const List& SettingsMaker::items() {
    static const List kList = {"600000",
                               "ab1",
                               "AB1",
                               "stock",
                               "STOCK",
                               "LOAN",
                               "ETF",
                               "DEF",
                               "MARKET",
                               "LIMIT",
                               "IPO",
                               "PIF",
                               "FUND",
                               "CDR",
                               "STOCKS",
                               "REPURCHASE",
                               "TECHSTOCKLIMIT",
                               "REPURCHASEBUYOUT",
                               "DIRECTIONALCONVERTIBALEBOND"};
    return kList;
}

const List& SettingsMaker::names() {
    static const List kList = {"ag", "AG", "Ag", "bc", "X1", "", "510300", "ALL"};
    return kList;
}

const List& SettingsMaker::productIds() {
    static const List kList = {"P1", "p1", "P2", ""};
    return kList;
}

const List& SettingsMaker::algorithmTypes() {
    static const List kList = {"TWAP", "VWAP", "twap", ""};
    return kList;
}

std::string SettingsMaker::number() {
    static const List kNumbers = {"0", "1000000", "500", "0500", " 500", "500x",
                                  "x", "-1",      "0.5", ".50",  "nan",  "+500"};
    return oneOf(kNumbers);
}

std::string SettingsMaker::joined(const List& list, char separator, std::size_t most) {
    std::string text;
    for (std::size_t i = random() % (most + 1); i > 0; --i)
        text += oneOf(list) + (i > 1 || chance(15) ? std::string(1, separator) : std::string());
    return text;
}

std::string SettingsMaker::platformList() {
    std::string text;
    for (std::size_t i = random() % 5; i > 0; --i)
        text += (chance(90) ? oneOf(platforms()) : std::string("x")) + oneOf(kSeparators);
    if (chance(70) && !text.empty() && text.back() == ',') text.pop_back();
    return text;
}

std::string SettingsMaker::platformValues(const List& values) {
    std::string text;
    for (std::size_t i = random() % 5; i > 0; --i) {
        if (chance(70)) text += oneOf(platforms()) + ':';
        text += oneOf(values) + (i > 1 || chance(20) ? ";" : "");
    }
    return text;
}

std::string SettingsMaker::limitKey() {
    std::string key;
    for (std::size_t i = 1 + random() % 2; i > 0; --i) {
        key += oneOf(markets());
        if (chance(95)) key += '-' + oneOf(items());
        if (i > 1) key += ',';
    }
    return key;
}

std::string SettingsMaker::limitValue(std::size_t fields) {
    static const List kUnits = {"股", "手", "", "500"};
    if (chance(5)) fields += 1;
    std::string value;
    for (std::size_t i = 0; i < fields; ++i) {
        if (i > 0) value += ',';
        // Long rows are mostly zeros; otherwise two would never be equal.
        if (i == 1 && fields < 5) {
            value += chance(60) ? kUnits[0] : oneOf(kUnits);
        } else {
            value += fields > 5 && chance(92) ? "0" : number();
        }
    }
    return value;
}

std::string SettingsMaker::contracts() {
    std::string text;
    for (std::size_t i = random() % 4; i > 0; --i) {
        text += oneOf(productIds());
        if (chance(95)) text += ':';
        if (chance(90)) text += "label," + number() + ',' + oneOf(kInts) + ',' + oneOf(kInts) + ',' + oneOf(kFlags);
        if (i > 1) text += ';';
    }
    return text;
}

// Entries, most of them with a ":", as in credit and fund lists.
std::string SettingsMaker::namedLists(const List& heads, const List& names) {
    std::string text;
    for (std::size_t i = random() % 4; i > 0; --i) {
        text += oneOf(heads);
        if (chance(92)) text += ':' + joined(names, ',', 3);
        if (i > 1) text += ';';
    }
    return text;
}

// The sections whose keys are data, and those with a single key.
std::string SettingsMaker::valueIn(const std::string& section) {
    static const List kFunds = {"SSE511880", "ALL", "SZSE1", ""};
    static const List kMarkets = {"SZSE", "SSE", ""};
    const auto limits = kLimitSections.find(section);
    if (limits != kLimitSections.end()) return limitValue(limits->second);
    if (section == "specialCombCompacts")
        return joined(names(), chance(70) ? ',' : ';', 4) + ";" + joined(names(), ',', 3);
    if (section == "monetaryFundUseSloBalanceFirst") return chance(30) ? "ALL" : joined(kFunds, ',', 3);
    if (section == "MonetaryFundSetting") return namedLists(kMarkets, names());
    return oneOf(kDecimals);
}

// The catalogues in the main section.
std::string SettingsMaker::catalogueValue(const std::string& key) {
    static const List kStrategies = {"S1:N1", "S2:N2", "bad", "a:b:c", ""};
    static const List kTimes = {"1000", "1400", ""};
    if (key == "algomultcontractsetting") return contracts();
    if (key == "algocontracttypes") {
        return oneOf(productIds()) + ':' + joined(algorithmTypes(), '|', 3) + ";P1:" + joined(algorithmTypes(), '|', 2);
    }
    if (key == "algohttpproductid") return joined(productIds(), ',', 3);
    if (key == "t0algotypes") return joined(kStrategies, ';', 3);
    if (key == "samrtalgotypes") return joined(algorithmTypes(), ';', 3);
    if (key == "algotypedisablebuysell") return joined(algorithmTypes(), ',', 3);
    return oneOf(platforms()) + (chance(80) ? ":" + joined(kTimes, ',', 2) : "");
}

std::string SettingsMaker::valueOf(const std::string& section, const std::string& key) {
    if (key == "use_collateral_buy_Concentration_Ratio") return namedLists(platforms(), kDecimals);
    if (key == "use_collateral_sale_repay_debt") return namedLists(platforms(), names());
    if (section != "setting") return valueIn(section);
    if (holds(kSingleKeys, key)) return oneOf(kInts);
    if (holds(kFlagKeys, key)) return platformValues(kFlags);
    if (holds(kIntKeys, key)) return platformValues(kInts);
    if (holds(kDecimalKeys, key)) return platformValues(kDecimals);
    if (holds(kBondKeys, key)) return limitValue(7);
    return holds(kCatalogueKeys, key) ? catalogueValue(key) : platformList();
}

std::vector<SettingsMaker::Line> SettingsMaker::lines() {
    std::vector<Line> made;
    const auto add = [&](const std::string& section, const std::string& key) {
        made.push_back({section, key, valueOf(section, key)});
    };
    for (int i = 0; i < 4; ++i)
        add("setting",
            std::string(
                ttservice::internal::kPlatformSwitches[random() % ttservice::internal::kPlatformSwitchCount].key));
    add("setting", "isnotneedreplacecashrequired");
    for (const List& keys :
         {unknownKeys(), kSingleKeys, kFlagKeys, kIntKeys, kDecimalKeys, kBondKeys, kCatalogueKeys}) {
        for (const std::string& key : keys) {
            if (chance(60)) add("setting", key);
        }
    }
    add("MonetaryFundSetting", "fix_price_by_nontrade_monetaryfund");
    add("CreditSetting", "use_collateral_buy_Concentration_Ratio");
    add("CreditSetting", "use_collateral_sale_repay_debt");
    add("HgtSgtPriceDiff", "price_diff");
    for (const char* section : {"StandardBondUseLimit", "FUTURE_SUBSCRIBE_PRODUCTS", "specialCombCompacts"}) {
        for (std::size_t i = random() % 4; i > 0; --i)
            add(section, "k" + oneOf(names()));
    }
    for (std::size_t i = random() % 4; i > 0; --i)
        add("monetaryFundUseSloBalanceFirst", oneOf(platforms()));
    for (const auto& section : kLimitSections) {
        for (std::size_t i = random() % 6; i > 0; --i)
            add(section.first, limitKey());
    }
    return made;
}

// Changes some values, renames or moves some keys, and removes some lines.
std::vector<SettingsMaker::Line> SettingsMaker::changed(const std::vector<Line>& lines) {
    const int percent = chance(20) ? 0 : static_cast<int>(random() % 40);
    std::vector<Line> made;
    for (const Line& line : lines) {
        if (chance(percent / 4)) continue;
        made.push_back(line);
        if (chance(percent)) made.back().value = valueOf(line.section, line.key);
        if (kLimitSections.count(line.section) != 0 && chance(percent / 4)) made.back().key = limitKey();
    }
    if (chance(30)) std::shuffle(made.begin(), made.end(), random);
    return made;
}

// Sections may repeat, with comments and repeated keys in between.
std::string SettingsMaker::text(const std::vector<Line>& lines) {
    std::string text = "; made\n";
    std::string section;
    for (const Line& line : lines) {
        if (section != line.section || chance(3)) text += '[' + (section = line.section) + "]\n";
        if (chance(5)) text += "# a comment\n";
        text += line.key + (chance(20) ? " = " : "=") + line.value + '\n';
    }
    return text;
}

std::pair<std::string, std::string> SettingsMaker::pair() {
    const std::vector<Line> before = lines();
    const std::vector<Line> after = chance(10) ? lines() : changed(before);
    return {text(before), text(after)};
}

}  // namespace tests
