// Pairs of made settings are loaded into stores of their own, every question is asked of both, and the differences have
// to be the questions that are answered in another way: none missing, none besides, each with both answers.

#include <gtest/gtest.h>
#include <standin/platformdata.h>
#include <ttplatform/ratelimitrecords.h>
#include <ttplatform/text.h>

#include <boost/algorithm/string/case_conv.hpp>
#include <cstdio>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "tests/support/standarderror.h"
#include "tests/support/tempfile.h"
#include "tests/tools/ttconfig/differences/settingsmaker.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/contractinfo.h"
#include "traderbase/base/config/internal/limitcategories.h"
#include "traderbase/base/config/internal/limitrows.h"
#include "traderbase/base/config/internal/perplatformlist.h"
#include "traderbase/base/config/internal/settingkeys.h"
#include "traderbase/base/config/internal/storeslot.h"
#include "traderbase/base/config/shfixincomelimit.h"
#include "ttconfig/differences/differences.h"
#include "ttconfig/differences/limitwords.h"

namespace {

using tests::SettingsMaker;
using ttconfig::Answer;
using ttservice::ConfigCollector;
using ttservice::internal::StoreSlot;
using StorePtr = boost::shared_ptr<ConfigCollector>;

constexpr unsigned kPairs = 500;
constexpr int kNobody = 987654;  // a platform that no settings name

// An answer as one text; numbers to the last digit, those that JSON cannot write included.
std::string shown(const Answer& answer) {
    if (answer.is_number_float()) {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.17g", answer.get<double>());
        return digits;
    }
    if (!answer.is_structured()) return answer.dump();
    std::string text = "(";
    for (const auto& item : answer.items())
        text += item.key() + ':' + shown(item.value()) + ' ';
    return text + ')';
}

// --- instruments of every kind

struct Kind {
    std::vector<int> stockTypes;
    std::vector<int> baseTypes;
};

const std::vector<Kind> kKinds = {
    {{}, {}},       {{}, {1062}},        {{}, {1172}},        {{100003}, {}}, {{100024}, {}},
    {{100016}, {}}, {{100103}, {}},      {{100104}, {}},      {{100004}, {}}, {{100013}, {}},
    {{126}, {}},    {{126, 100021}, {}}, {{100017, 124}, {}}, {{}, {1154}},   {{}, {1124}},
    {{}, {1136}}};

const std::vector<int> kPriceTypes = {0, 50, 117, 84};
const std::vector<std::string> kMarkets = {"SH", "SHO", "HGT", "HK", "NEEQ", "SGT"};

std::vector<std::shared_ptr<const standin::PlatformData>> platformsOfKinds() {
    std::vector<std::shared_ptr<const standin::PlatformData>> all;
    for (const Kind& kind : kKinds) {
        const auto data = std::make_shared<standin::PlatformData>();
        for (const std::string& market : kMarkets) {
            for (const int type : kind.stockTypes)
                data->addStockType(type, market, "*");
            for (const int type : kind.baseTypes)
                data->addBaseType(type, market, "*");
        }
        for (const char* market : {"SSE", "S", ""}) {
            for (const int type : kind.stockTypes)
                data->addStockType(type, market, "*");
        }
        all.push_back(data);
    }
    return all;
}

// --- all answers of one store

// By question, the answers that it has for the kinds of instruments.
using Answers = std::map<std::string, std::vector<std::string>>;

class Asking {
public:
    Asking(ConfigCollector& askedStore, Answers& filledAnswers) : store(askedStore), answers(filledAnswers) {}

    void askPlatforms() {
        for (const int platform : {12, 15, 7, -5, 0, 5, 41, kNobody}) {
            const std::string subject =
                platform == kNobody ? "every other platform: " : "platform " + std::to_string(platform) + ": ";
            askValues(subject, platform);
            askLists(subject, platform);
            askSwitches(subject, platform);
        }
    }

    void askSingles() {
        const auto put = [this](const char* question, const Answer& answer) { set(question, answer); };
        put("isshowmaxcanorder: isShowMaxCanOrder", store.isShowMaxCanOrder());
        put("isshownewcompacts: showNewCompacts", store.showNewCompacts());
        put("useregistrules: useRegistRules", store.useRegistRules());
        put("useregistiporules: useRegistIPORules", store.useRegistIPORules());
        put("shusenewbondrules: useNewBondRules SH", store.useNewBondRules("SH"));
        put("shusenewbondrules: useNewShangHaiLoanRules", store.useNewShangHaiLoanRules());
        put("szusenewbondrules: useNewBondRules SZ", store.useNewBondRules("SZ"));
        put("userglobalref: useGlobalRef", store.useGlobalRef());
        put("refLimit: getRefLimit", store.getRefLimit());
        put("useSplitPageOfStkCompact: useSplitPageOfStkCompact", store.useSplitPageOfStkCompact());
        put("creditCompactDeferT3: isCreditCompactDeferT3", store.isCreditCompactDeferT3());
        put("flowhistorydays: getFlowHistoryDays", store.getFlowHistoryDays());
        put("[HgtSgtPriceDiff] price_diff: getHgtSgtPriceDiff", store.getHgtSgtPriceDiff());
        for (const int type : {2, 3, 4, 5})
            askFixedIncome(type);
    }

    void askNames() {
        for (const std::string& plain : SettingsMaker::names()) {
            for (const std::string& name : {"k" + plain, boost::algorithm::to_upper_copy("k" + plain)}) {
                set("bond " + name + ": getStandardBondUseLimit", store.getStandardBondUseLimit(name));
                set("product " + name + ": getSubFee", store.getSubFee(name));
            }
            set("product " + plain + ": getSingleMarginProductName", store.getSingleMarginProductName(plain));
        }
        for (const std::string market : {"SZSE", "SSE", ""}) {
            std::vector<std::string> codes = SettingsMaker::names();
            codes.insert(codes.end(), {"SZSE", "SSE"});
            for (const std::string& code : codes) {
                set(market + '-' + code + ": isNeedFixPriceByNonTradeMonetaryFund",
                    store.isNeedFixPriceByNonTradeMonetaryFund(market, code));
            }
        }
    }

    void askCatalogue() {
        for (const bool isCredit : {false, true}) {
            const std::string accounts = isCredit ? ", credit accounts: " : ", stock accounts: ";
            for (const std::string& product : SettingsMaker::productIds())
                set("algorithm product " + product + accounts + "getContractInfo", contract(product, isCredit));
            for (const std::string& type : SettingsMaker::algorithmTypes()) {
                set("algorithm type " + type + accounts + "getProductIdbyAlgoName",
                    store.getProductIdbyAlgoName(type, isCredit));
            }
        }
        for (const std::string& product : SettingsMaker::productIds())
            set("algorithm product " + product + ": isHttpProductID", store.isHttpProductID(product));
        Answer pairs = Answer::array();
        for (const auto& pair : store.getT0Strategy())
            pairs.push_back(Answer::array({pair.first, pair.second}));
        set("t0algotypes: getT0Strategy", pairs);
        set("samrtalgotypes: getAlgoTypes", Answer(store.getAlgoTypes()));
        set("algotypedisablebuysell: getBuySellHideAlgoTypes", Answer(store.getBuySellHideAlgoTypes()));
        set("etfbrokerclienttag: getETFBrokerCLientTag", store.getETFBrokerCLientTag());
        set("etfbrokerclienttag: getETFBrokerCLientQueryTimes", Answer(store.getETFBrokerCLientQueryTimes()));
    }

    // For the kind of instrument that the platform has now.
    void askInstruments() {
        for (const std::string& market : kMarkets) {
            askLimits(market, market);
            askLimits(market, "ZZZ9");
            for (const std::string& item : SettingsMaker::items())
                askLimits(market, boost::algorithm::to_upper_copy(item));
        }
        for (const int platform : {12, 15, 7, -5, 0, 5, 41}) {
            const std::string question = "platform " + std::to_string(platform) + ": isMonetaryFundUseSloBalanceFirst ";
            add(question + "SSE511880", store.isMonetaryFundUseSloBalanceFirst(platform, "SSE", "511880"));
            add(question + "SZSE1", store.isMonetaryFundUseSloBalanceFirst(platform, "S", "ZSE1"));
            add(question, store.isMonetaryFundUseSloBalanceFirst(platform, "", ""));
        }
    }

    // A fund of the money market that no list has.
    void askAllFunds() {
        for (const int platform : {12, 15, 7, -5, 0, 5, 41}) {
            set("platform " + std::to_string(platform) + ": isMonetaryFundUseSloBalanceFirst ALL",
                store.isMonetaryFundUseSloBalanceFirst(platform, "SSE", "none"));
        }
    }

private:
    void set(const std::string& question, const Answer& answer) { answers[question] = {shown(answer)}; }
    void add(const std::string& question, const Answer& answer) { answers[question].push_back(shown(answer)); }

    void askValues(const std::string& subject, int platform) {
        set(subject + "isT0ForReturnStockPts", store.isT0ForReturnStockPts(platform));
        set(subject + "isSPXCreditStockPts", store.isSPXCreditStockPts(platform));
        set(subject + "isMainAccountcalcCompactsBydealPts", store.isMainAccountcalcCompactsBydealPts(platform));
        set(subject + "getRenewalPts", store.getRenewalPts(platform));
        set(subject + "getCounterMaxCompactsRespNum", store.getCounterMaxCompactsRespNum(platform));
        set(subject + "useCounterIpwanPos", store.useCounterIpwanPos(platform));
        set(subject + "isNeedCheckAssureEnbuyBalancePts", store.isNeedCheckAssureEnbuyBalancePts(platform));
        set(subject + "getSpecailEnableVolStkExchangeRate", store.getSpecailEnableVolStkExchangeRate(platform));
        set(subject + "getisSetavailable", store.getisSetavailable(platform));
        set(subject + "getFinEnableBailRatio", store.getFinEnableBailRatio(platform));
    }

    void askLists(const std::string& subject, int platform) {
        set(subject + "isSetavailable", store.isSetavailable(platform));
        set(subject + "isUseSpecialEnableBalCalcVolume", store.isUseSpecialEnableBalCalcVolume(platform));
        set(subject + "isUseFinEnableBailRatio", store.isUseFinEnableBailRatio(platform));
        set(subject + "isCanQueryETFFromCounter", store.isCanQueryETFFromCounter(platform));
        double first = 0;
        double second = 0;
        const bool there = store.isUseConcentrationRatioPts(platform, first, second);
        set(subject + "isUseConcentrationRatioPts", Answer::array({there, first, second}));
        for (const std::string& code : SettingsMaker::names()) {
            set(subject + "isRepayDebtByCollateralSell " + code, store.isRepayDebtByCollateralSell(platform, code));
        }
    }

    void askSwitches(const std::string& subject, int platform) {
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) set(subject + #predicate, store.predicate(platform));
#include "traderbase/base/config/platformswitches.def"
        for (const std::string& key : SettingsMaker::unknownKeys())
            set(subject + "isSomePt(\"" + key + "\")", store.isSomePt(key, platform));
    }

    void askFixedIncome(int type) {
        const auto limit = store.getSHFixIncomeLimit(static_cast<EBondTradeType>(type));
        Answer answer;
        if (limit) {
            answer = {{"doubleValue", limit->doubleValue}, {"intValue1", limit->intValue1},
                      {"intValue2", limit->intValue2},     {"intValue3", limit->intValue3},
                      {"intValue4", limit->intValue4},     {"intValue5", limit->intValue5},
                      {"intValue6", limit->intValue6}};
        }
        set("bond trade type " + std::to_string(type) + ": getSHFixIncomeLimit", answer);
    }

    Answer contract(const std::string& product, bool isCredit) const {
        const auto record = store.getContractInfo(product, isCredit);
        if (!record) return {};
        return {{"intValue", record->intValue},   {"doubleValue", record->doubleValue},
                {"longValue", record->longValue}, {"productId", record->productId},
                {"textValue", record->textValue}, {"isCredit", record->isCredit}};
    }

    // A code that no row names is asked for its category's sake: the answer is that of the category.
    void addLimit(ttconfig::LimitWords words, const std::string& market, const std::string& code,
                  const std::string& category, const std::string& question, const Answer& answer) {
        if (ttconfig::isWordOf(words, code)) return;
        add(market + '-' + (code == "ZZZ9" ? category : code) + ": " + question, answer);
    }

    void askLimits(const std::string& market, const std::string& code) {
        using namespace ttservice::internal;
        for (const int price : kPriceTypes) {
            const auto priceType = static_cast<EBrokerPriceType>(price);
            const auto limit = store.getOrderLimit(market, code, priceType);
            addLimit(ttconfig::orderLimitWords, market, code,
                     std::string(orderLimitCategory(market, code, priceType).word), "getOrderLimit",
                     Answer::array({limit.first, limit.second}));
        }
        if (code == "ZZZ9") askBlockTrades(market, code);
        addLimit(ttconfig::stockRateWords, market, code, std::string(stockRateCategory(market, code).word),
                 "getRateLimitPtr", fields(*store.getRateLimitPtr(market, code)));
        const std::string shanghai = market == "HK" ? "HGT" : market;
        addLimit(ttconfig::shanghaiConnectRateWords, shanghai, code,
                 std::string(shanghaiConnectRateCategory(shanghai, code).word), "getHGTExchangeRateLimitPtr",
                 connectFields(*store.getHGTExchangeRateLimitPtr(market, code)));
        const std::string shenzhen = market == "HK" ? "SGT" : market;
        addLimit(ttconfig::shenzhenConnectRateWords, shenzhen, code, "STOCK", "getSgtExchangeRateLimitPtr",
                 connectFields(*store.getSgtExchangeRateLimitPtr(market, code)));
    }

    void askBlockTrades(const std::string& market, const std::string& code) {
        using namespace ttservice::internal;
        const auto limit = store.getDazongOrderNumLimit(market, code);
        add(market + '-' + std::string(blockTradeQuantityCategory(market, code).word) + ": getDazongOrderNumLimit",
            Answer::array({limit.first, limit.second}));
        add(market + '-' + std::string(blockTradeAmountCategory(market, code).word) +
                ": getDazongOrderTradeAmountLimit",
            store.getDazongOrderTradeAmountLimit(market, code));
    }

    static Answer fields(const CStkExchangeRateLimit& record) {
        return Answer::array(
            {record.rate1, record.rate2, record.rate3, record.rate4, record.rate5, record.rate6, record.count});
    }

    template <typename Record>
    static Answer connectFields(const Record& record) {
        return Answer::array({record.rate1, record.rate2, record.rate3, record.rate4, record.rate5, record.rate6,
                              record.rate7, record.rate8, record.rate9, record.rate10, record.rate11, record.rate12,
                              record.rate13, record.rate14});
    }

    ConfigCollector& store;
    Answers& answers;
};

StorePtr loaded(const tests::TempFolder& folder, const std::string& settings) {
    const tests::StandardError quiet;
    const StorePtr store = StoreSlot::build();
    StoreSlot::exchange(store);
    store->readConfig(folder.write("settings.ini", settings));
    return store;
}

Answers allAnswers(ConfigCollector& store,
                   const std::vector<std::shared_ptr<const standin::PlatformData>>& platformKinds) {
    Answers answers;
    Asking asking(store, answers);
    asking.askPlatforms();
    asking.askSingles();
    asking.askNames();
    asking.askCatalogue();
    for (std::size_t kind = 0; kind < platformKinds.size(); ++kind) {
        standin::PlatformData::install(platformKinds[kind]);
        asking.askInstruments();
        if (kKinds[kind].stockTypes == std::vector<int>{100024}) asking.askAllFunds();
    }
    return answers;
}

// The places that the rows of a section name, as "SH-600000: getOrderLimit"; rows that no load takes are left out.
void addNamed(const standin::SettingsText& text, const char* section, std::size_t fields, const char* question,
              std::set<std::string>& named) {
    using namespace ttservice::internal;
    const auto* found = text.findSection(section);
    if (found == nullptr) return;
    for (const auto& entry : found->entries) {
        if (entry.repeated || fieldCount(entry.value) != fields) continue;
        forEachLimitItem(entry.key, [&](const LimitItem& item) {
            const MarketItem key = tableKey(item);
            named.insert(key.first + '-' + key.second + ": " + question);
        });
    }
}

std::set<std::string> namedPlaces(const std::string& before, const std::string& after) {
    std::set<std::string> named;
    for (const std::string* settings : {&before, &after}) {
        const standin::SettingsText text(*settings);
        for (const char* section : {"StkExchangeOrderLimit", "HGTExchangeOrderLimit", "SgtExchangeOrderLimit"})
            addNamed(text, section, 2, "getOrderLimit", named);
        addNamed(text, "StkExchangeRateLimit", 7, "getRateLimitPtr", named);
        addNamed(text, "HGTExchangeRateLimit", 14, "getHGTExchangeRateLimitPtr", named);
        addNamed(text, "SgtExchangeRateLimit", 14, "getSgtExchangeRateLimitPtr", named);
    }
    return named;
}

// A code that no row of either text names follows its category, and is told with that.
bool followsCategory(const std::string& question, const std::set<std::string>& named) {
    using namespace ttconfig;
    static const std::map<std::string, LimitWords> kTables = {{"getOrderLimit", orderLimitWords},
                                                              {"getRateLimitPtr", stockRateWords},
                                                              {"getHGTExchangeRateLimitPtr", shanghaiConnectRateWords},
                                                              {"getSgtExchangeRateLimitPtr", shenzhenConnectRateWords}};
    const auto table = kTables.find(question.substr(question.rfind(' ') + 1));
    if (table == kTables.end() || named.count(question) != 0) return false;
    const std::size_t dash = question.find('-');
    return !isWordOf(table->second, question.substr(dash + 1, question.find(':') - dash - 1));
}

// What of all answers is not the same, as "before → after"; null where that depends on the kind of the instrument.
std::map<std::string, std::string> changedAnswers(const Answers& before, const Answers& after,
                                                  const std::set<std::string>& named) {
    const auto one = [](const std::vector<std::string>& texts) {
        return std::set<std::string>(texts.begin(), texts.end()).size() == 1 ? texts.front() : std::string("null");
    };
    std::map<std::string, std::string> changed;
    for (const auto& [question, old] : before) {
        const auto& now = after.at(question);
        const std::string answers = one(old) + " → " + one(now);
        // A fund that neither list names follows the answer for all of them.
        const bool followsAll = question.find("isMonetaryFundUseSloBalanceFirst") != std::string::npos &&
                                (answers == "false → null" || answers == "null → false");
        if (old != now && !followsAll && !followsCategory(question, named)) changed[question] = answers;
    }
    return changed;
}

std::map<std::string, std::string> toldChanges(const std::string& before, const std::string& after,
                                               const std::vector<int>& platforms) {
    const standin::SettingsText oldText(before);
    const standin::SettingsText newText(after);
    std::map<std::string, std::string> told;
    for (const ttconfig::Change& change : ttconfig::differences(oldText, newText, platforms)) {
        if (change.topic == ttconfig::ChangeTopic::Unit) continue;  // has a test of its own
        const std::string question = change.subject + ": " + change.question;
        EXPECT_EQ(told.count(question), 0U) << question << " is told twice";
        told[question] = shown(change.before) + " → " + shown(change.after);
    }
    return told;
}

std::string firstUnlike(const std::map<std::string, std::string>& expected,
                        const std::map<std::string, std::string>& told) {
    for (const auto& [question, answers] : expected) {
        const auto found = told.find(question);
        if (found == told.end()) return "not told: " + question + " " + answers;
        if (found->second != answers) return question + " " + answers + " is told as " + found->second;
    }
    for (const auto& [question, answers] : told) {
        if (expected.count(question) == 0) return "told, but is none: " + question + " " + answers;
    }
    return {};
}

template <typename Value>
bool namesPlatform(std::string_view value, int platform) {
    using namespace ttservice::internal;
    bool named = false;
    splitKeepEmpty(value, ';', [&](std::string_view text) {
        const auto item = perPlatformItem<Value>(text);
        named = named || (item.kind == PerPlatformItemKind::Entry && item.platform == platform);
    });
    return named;
}

// Whether the value that a question is answered from names the platform in this text.
bool namesPlatform(const std::string& settings, const std::string& operation, int platform) {
    using namespace ttservice::internal;
    const standin::SettingsText text(settings);
    for (const SettingKey& row : kSettingKeys) {
        const auto* entry = text.findEntry(row.section, row.key);
        if (entry == nullptr || (' ' + std::string(row.feeds) + ' ').find(' ' + operation + ' ') == std::string::npos) {
            continue;
        }
        if (row.grammar == ValueGrammar::PerPlatformInteger) return namesPlatform<int>(entry->value, platform);
        if (row.grammar == ValueGrammar::PerPlatformDecimalKeepEmpty)
            return namesPlatform<double>(entry->value, platform);
        return namesPlatform<bool>(entry->value, platform);
    }
    return false;
}

// Platforms that neither text names for a value are told about together.
void dropThoseToldTogether(const std::string& before, const std::string& after,
                           std::map<std::string, std::string>& expected) {
    for (auto item = expected.begin(); item != expected.end();) {
        const std::string& question = item->first;
        const std::size_t colon = question.find(": ");
        const std::string operation = question.substr(colon + 2);
        const bool isPlatform = question.rfind("platform ", 0) == 0;
        const auto together = expected.find("every other platform: " + operation);
        const int platform = isPlatform ? std::stoi(question.substr(9, colon - 9)) : 0;
        if (isPlatform && together != expected.end() && together->second == item->second &&
            !namesPlatform(before, operation, platform) && !namesPlatform(after, operation, platform)) {
            item = expected.erase(item);
        } else {
            ++item;
        }
    }
}

bool isAskedWithPlatform(const std::string& question, const std::string& platform) {
    return question.rfind("platform " + platform + ": ", 0) == 0;
}

constexpr unsigned kLimitedPairs = 60;

TEST(DifferencesOracle, TellsExactlyTheQuestionsThatTheLibraryAnswersInAnotherWay) {
    const tests::TempFolder folder;
    const auto platformKinds = platformsOfKinds();
    std::size_t questions = 0;
    std::size_t changes = 0;
    int alike = 0;
    for (unsigned seed = 0; seed < kPairs && !HasFailure(); ++seed) {
        SettingsMaker maker(seed);
        const auto [before, after] = maker.pair();
        const Answers old = allAnswers(*loaded(folder, before), platformKinds);
        const Answers now = allAnswers(*loaded(folder, after), platformKinds);
        auto expected = changedAnswers(old, now, namedPlaces(before, after));
        dropThoseToldTogether(before, after, expected);
        const auto told = toldChanges(before, after, {});
        EXPECT_EQ(firstUnlike(expected, told), "") << "seed " << seed << "\n--- old\n"
                                                   << before << "--- new\n"
                                                   << after;
        questions += old.size();
        changes += expected.size();
        alike += expected.empty() ? 1 : 0;
    }
    EXPECT_GT(questions, 100000U);
    EXPECT_GT(changes, 5000U);
    EXPECT_GT(alike, 5);
    RecordProperty("questions", static_cast<int>(questions));
    RecordProperty("changes", static_cast<int>(changes));
}

TEST(DifferencesOracle, LimitedToPlatformsTellsTheirQuestionsAndNothingElse) {
    const tests::TempFolder folder;
    const auto platformKinds = platformsOfKinds();
    for (unsigned seed = 1000; seed < 1000 + kLimitedPairs && !HasFailure(); ++seed) {
        SettingsMaker maker(seed);
        const auto [before, after] = maker.pair();
        const auto all = changedAnswers(allAnswers(*loaded(folder, before), platformKinds),
                                        allAnswers(*loaded(folder, after), platformKinds), namedPlaces(before, after));
        std::map<std::string, std::string> expected;
        for (const auto& [question, answers] : all) {
            const std::string other = "every other platform: ";
            if (isAskedWithPlatform(question, "12") || isAskedWithPlatform(question, "-5"))
                expected[question] = answers;
            if (question.rfind(other, 0) == 0) {
                expected["platform " + std::to_string(kNobody) + ": " + question.substr(other.size())] = answers;
            }
        }
        EXPECT_EQ(firstUnlike(expected, toldChanges(before, after, {kNobody, 12, -5, 12})), "") << "seed " << seed;
    }
}

TEST(LimitWords, AreTheWordsThatTheRulesComeToOnTheMarket) {
    using namespace ttservice::internal;
    std::map<std::string, std::set<std::string_view>> found;
    for (const auto& kind : platformsOfKinds()) {
        standin::PlatformData::install(kind);
        for (const std::string& market : kMarkets) {
            for (const int price : kPriceTypes)
                found["order " + market].insert(
                    orderLimitCategory(market, "1", static_cast<EBrokerPriceType>(price)).word);
            found["quantity " + market].insert(blockTradeQuantityCategory(market, "1").word);
            found["amount " + market].insert(blockTradeAmountCategory(market, "1").word);
            found["rate " + market].insert(stockRateCategory(market, "1").word);
            found["shanghai " + market].insert(shanghaiConnectRateCategory(market, "1").word);
            found["shenzhen " + market].insert(shenzhenConnectRateCategory().word);
        }
    }
    const auto asSet = [](const std::vector<std::string_view>& words) {
        return std::set<std::string_view>(words.begin(), words.end());
    };
    for (const std::string& market : kMarkets) {
        EXPECT_EQ(asSet(ttconfig::orderLimitWords(market)), found["order " + market]) << market;
        EXPECT_EQ(asSet(ttconfig::blockTradeQuantityWords(market)), found["quantity " + market]) << market;
        EXPECT_EQ(asSet(ttconfig::blockTradeAmountWords(market)), found["amount " + market]) << market;
        EXPECT_EQ(asSet(ttconfig::stockRateWords(market)), found["rate " + market]) << market;
        EXPECT_EQ(asSet(ttconfig::shanghaiConnectRateWords(market)), found["shanghai " + market]) << market;
        EXPECT_EQ(asSet(ttconfig::shenzhenConnectRateWords(market)), found["shenzhen " + market]) << market;
    }
}

}  // namespace
