#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <ttplatform/enums.h>
#include <boost/shared_ptr.hpp>

#include "luaconfig/export.h"
#include "traderbase/base/config/contractinfo.h"

class CStkExchangeRateLimit;
class CCustomHGTExchangeRateLimit;
class CCustomSgtExchangeRateLimit;

namespace ttservice {

namespace internal {
struct StoreState;
}  // namespace internal

struct SHFixIncomeLimit;

// The settings store: reads the settings file and the market-time script once and answers from memory.
//
// Thread safety. instance() may be called from anywhere at any time. A reader/writer lock guards the platform switches
// (setPts, getPts, getAllpts, isSomePt and every predicate): any thread may query and replace them at any time. All
// other operations take no lock: the client loads and sets its overrides before other threads query the store; from
// then on any number of threads may query it at once. Operations that differ say so below.
//
// A platform is a broker counter, identified by an int. No operation throws for a missing or wrong setting: every query
// has an answer when nothing is configured. Answers are copies, or shared records that stay valid after a reload.
class TRADERBASE_API ConfigCollector {
public:
    // --- the store itself

    // The process's one store. The first call builds it: defaults, no switches, market times from the script. It is
    // destroyed when the process ends, unless a caller still holds it. Later calls, from destructors of static objects,
    // each return a new store in the state before any load. No other thread may use the store while static objects are
    // destroyed.
    static boost::shared_ptr<ConfigCollector> instance();

    ConfigCollector(const ConfigCollector&) = delete;
    ConfigCollector& operator=(const ConfigCollector&) = delete;
    ~ConfigCollector();

    // Loads a settings file; call it again to reload. If the file is missing or unreadable, every key takes its
    // default. Switches are merged key by key: a key that the new file lacks keeps its list. Local overrides and
    // run-time values stay. Each bad piece of a value is skipped, with one line on the standard error stream.
    void readConfig(std::string path);

    // The path passed to the last readConfig(); empty before the first.
    void getOriginalStr(std::string& out) const;

    // --- platform switches: local overrides
    // An override decides its key for every platform and takes precedence over the settings file.

    // Sets the override of one switch key; other overrides stay. Not locked.
    void addLocalConfig(const std::string& name, bool value);

    // Replaces all overrides; an empty map removes them. Not locked.
    void setUseLocalConfig(const std::map<std::string, bool>& overrides);

    // --- platform switches: the table

    // Replaces the platform list of each given key; all other lists stay. Locks exclusively.
    void setPts(std::map<std::string, std::vector<int>> lists);

    // The platforms listed under a key, in file order; empty for an unknown key. Locks shared.
    std::vector<int> getPts(const std::string& key) const;

    // All keys of section "setting" with their platform lists, including the keys of scalar settings. Locks shared.
    std::map<std::string, std::vector<int>> getAllpts() const;

    // The override of the key if there is one, otherwise whether the platform is listed under it; false for an unknown
    // key. Locks shared.
    bool isSomePt(std::string_view key, int platformId) const;

    // The predicates, one per row of platformswitches.def: isSomePt() of the row's key, negated for the two rows marked
    // NotListed. Without the key the answer is false, and true for those two. They lock shared.
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) bool predicate(int platformId) const;
#include "traderbase/base/config/platformswitches.def"

    // Whether the platform's number, in decimal, equals the ETF broker client tag; false without a tag. Not locked.
    bool isCanQueryETFFromCounter(int platformId) const;

    // Replaces the split permissions, one level per name. Not locked.
    void setSplitPermission(const std::map<std::string, int>& permissions);

    // The level set for the name; 0 for an unknown name.
    int getMaxPermission(std::string name) const;

    // --- single values of the settings file
    // A flag is true exactly when its key reads as 1. Without the key it is false, unless stated otherwise.

    bool isShowMaxCanOrder() const;
    bool showNewCompacts() const;
    bool useRegistRules() const;
    bool useRegistIPORules() const;
    bool useGlobalRef() const;
    bool useSplitPageOfStkCompact() const;
    bool isCreditCompactDeferT3() const;

    // Whether the new bond rules apply in market "SH" or "SZ" (upper case only); false for every other market.
    bool useNewBondRules(const std::string& market) const;

    // Same as useNewBondRules("SH"). The key named after this operation is read but has no effect.
    bool useNewShangHaiLoanRules() const;

    // The value of "refLimit"; 0 without the key.
    int getRefLimit() const;

    // Days of flow history; -1 without the key.
    int getFlowHistoryDays() const;

    // The price difference of the connect markets, as written in the file; empty without the key.
    std::string getHgtSgtPriceDiff() const;

    // --- one value for each platform
    // The value given for the platform, otherwise the value's default item, otherwise the default named here. A value
    // that names platforms but has no default item keeps the default of the previous load (false or 0 on the first
    // load).

    bool isT0ForReturnStockPts(int platformId) const;               // true
    bool isSPXCreditStockPts(int platformId) const;                 // false
    bool isMainAccountcalcCompactsBydealPts(int platformId) const;  // true
    int getRenewalPts(int platformId) const;                        // 0
    int getCounterMaxCompactsRespNum(int platformId) const;         // 500 contracts
    bool useCounterIpwanPos(int platformId) const;                  // true; any value but 0 counts as true

    // --- limits of one order
    // Markets and codes may be in either letter case. A row for the code takes precedence over a row for its category.

    // Largest quantity one order may carry, and its unit word; (1000000, "股") when no row fits. Inserts that default
    // for the category: serialise with loads and other limit queries.
    std::pair<int, std::string> getOrderLimit(const std::string& market, const std::string& code,
                                              EBrokerPriceType priceType);

    // Largest quantity of one block trade, and its unit word; (1000000, "股") without a row. Looks up the category
    // only, never the code. Inserts nothing.
    std::pair<int, std::string> getDazongOrderNumLimit(const std::string& market, const std::string& code) const;

    // Largest amount of one block trade, the number as written in the file; 1000000 without a row. Looks up the
    // category only, and distinguishes fewer categories than the quantity does. Inserts nothing.
    int getDazongOrderTradeAmountLimit(const std::string& market, const std::string& code) const;

    // --- exchange rate limits
    // The shared record (ttplatform/ratelimitrecords.h) of the code's row, otherwise of its category's row; never null.
    // Without a row, inserts a zeroed record for the category, which stays until the next load: serialise with loads
    // and other limit queries.

    boost::shared_ptr<CStkExchangeRateLimit> getRateLimitPtr(std::string market, std::string code);

    // For Shanghai connect; market "HK" is looked up as "HGT".
    boost::shared_ptr<CCustomHGTExchangeRateLimit> getHGTExchangeRateLimitPtr(std::string market, std::string code);

    // For Shenzhen connect; market "HK" is looked up as "SGT". The only category is "STOCK", even for bonds.
    boost::shared_ptr<CCustomSgtExchangeRateLimit> getSgtExchangeRateLimitPtr(std::string market, std::string code);

    // --- bonds

    // The order parameters (shfixincomelimit.h) of a bond trade type on the Shanghai fixed-income platform, as a shared
    // record; null for a type that no load has set. A reload replaces only the types for which it finds a well-formed
    // value.
    boost::shared_ptr<SHFixIncomeLimit> getSHFixIncomeLimit(EBondTradeType tradeType) const;

    // The usage ratio of a standard bond; 1.0 for an unknown code. A row written in lower case matches the code in
    // lower or upper case; a row written in upper case matches upper case only.
    double getStandardBondUseLimit(const std::string& code) const;

    // --- credit ratios by platform

    // Whether the platform has concentration ratios for buying with collateral; if so, stores them in the two outputs,
    // which are otherwise left unchanged. Locks a mutex of its own: safe to call during a load.
    bool isUseConcentrationRatioPts(const int& platformId, double& first, double& second) const;

    // Whether selling the code as collateral repays debt; false if the platform or the code is not listed. Letter case
    // matters. Locks shared, like the platform switches: safe to call during a load.
    bool isRepayDebtByCollateralSell(int platformId, const std::string& code) const;

    // Pairs of operations. The first answers the number given for the platform, otherwise the value's default item,
    // otherwise the number named here. The second answers whether the platform is listed, even if with 0.
    double getisSetavailable(int platformId) const;  // 0
    bool isSetavailable(int platformId) const;
    double getSpecailEnableVolStkExchangeRate(int platformId) const;  // 0 (sic)
    bool isUseSpecialEnableBalCalcVolume(int platformId) const;
    double getFinEnableBailRatio(int platformId) const;  // always 0.6: no load reads its key
    bool isUseFinEnableBailRatio(int platformId) const;  // always false, for the same reason

    // The flag given for the platform, otherwise the value's default item, otherwise false.
    bool isNeedCheckAssureEnbuyBalancePts(int platformId) const;

    // --- run-time values, set by the client
    // Plain setters and getters; readConfig() does not touch these values. Each comment gives the answer before the
    // first set.

    void setAutoSplitOrderAuth(bool allowed);
    bool hasAutoSplitOrderAuth() const;  // true

    void setDelayPushTime(int time);
    int getDelayPushTime() const;  // 30

    void setNeedDelayPushExternOrder(bool needed);
    bool isNeedDelayPushExternOrder() const;  // false

    void setNeedRemoveExportFile(bool needed);
    bool isNeedRemoveExportFile() const;  // false

    void setGadrafClientMode(bool on);
    bool isGadrafClientMode() const;  // false

    // Irreversible: the calculation cannot be switched on again in this process.
    void setNoNeedCalcAccountDetail();
    bool isNeedCalcAccountDetail() const;  // true

    // Also logs one INFO line to the standard logger.
    void setUseOrderIdFunction(bool use);
    bool useOrderIdFunction() const;  // true

    // The rate type while the customer rate is in use, otherwise -1.
    void setHKUseCustRate(bool use);
    void setHKRateType(int rateType);
    int getHKUseCustRateType() const;  // -1

    // "1" sets it and "0" clears it; any other text leaves it unchanged.
    void setHideModel(const std::string& text);
    bool getHideModel() const;  // false

    void setLocalDiskPathHash(const std::string& hash);
    std::string getLocalDiskPathHash() const;  // empty

    void setLocalInfoFormat(const std::string& format);
    std::string getLocalInfoFormat() const;  // empty

    void setQeTsConfig(const std::string& config);
    void getQeTsConfigStr(std::string& out) const;  // empty

    // --- algorithm products
    // A load adds products and algorithm types, and replaces those with the same name; what the file no longer names
    // stays. Records already handed out never change. The name lists below are replaced as a whole.

    // The product's record for credit or for stock accounts; null if there is none. Not locked.
    boost::shared_ptr<ContractInfo> getContractInfo(const std::string& productId, bool isCredit) const;

    // All records for accounts of kind 2 (stock) or 3 (credit), ordered by key; empty for any other kind.
    std::vector<boost::shared_ptr<ContractInfo>> getContractInfo(int accountKind) const;

    // All records by key: the product ID followed by "_stock" or "_credit".
    std::map<std::string, boost::shared_ptr<ContractInfo>> getAllContractInfo() const;

    // The product that serves an algorithm type on credit or stock accounts; empty for an unknown name. Inserts an
    // unknown name into the index: serialise with loads and with other calls of this operation.
    std::string getProductIdbyAlgoName(const std::string& algoName, bool isCredit);

    // Whether the product is served over HTTP; letter case matters. False without a list.
    bool isHttpProductID(const std::string& productId) const;

    // The smart algorithm types, and those whose buy/sell choice is hidden. Empty without the key; an empty piece of
    // the value counts as an empty name.
    std::set<std::string> getAlgoTypes() const;
    std::set<std::string> getBuySellHideAlgoTypes() const;

    // The T0 strategies as written, each with its second name; empty without the key.
    std::vector<std::pair<std::string, std::string>> getT0Strategy() const;

    // --- special products

    // Subscription fee of a futures product; 0.0 for an unknown code. The code matches as written in the file or in
    // upper case. A load replaces all fees.
    double getSubFee(const std::string& productCode) const;

    // The product on which a combination's margin is charged: the first of its group, or the code itself if it is in no
    // group. A load only adds groups; a product keeps the first answer it was given.
    std::string getSingleMarginProductName(const std::string& productCode) const;

    // The ETF broker client's tag and query times, as text; empty until a load sets them. A load without the setting
    // keeps them.
    std::string getETFBrokerCLientTag() const;                      // (sic)
    std::vector<std::string> getETFBrokerCLientQueryTimes() const;  // (sic)

    // --- market trading time
    // Times are seconds since midnight. Not locked: built with the store and rebuilt only when the client asks for it.

    // Rebuilds the sessions of all markets from a market-time script, by default "../luaScripts/MarketTime.lua". If the
    // script names no markets, the sessions stay as they are. Lua errors are logged at ERROR level. Throws
    // std::bad_alloc when memory runs out, including in the script; the sessions then stay as they are. A script that
    // uses 64 MiB or more before memory runs out counts as a failed script instead.
    void initMarketTradingTime();
    void initMarketTradingTime(const std::string& scriptPath);

    // The same from texts, each mapping a market to its JSON object of clock times (HHMMSS) and status codes: 50 opens
    // a session, 49 and 54 close it. An empty map leaves the sessions as they are; a market whose text is not a JSON
    // object gets no sessions.
    void initMarketTradingTime(const std::map<std::string, std::string>& sessionTexts);

    // The market's sessions as (start, end) in clock order; empty for a market without sessions. A session still open
    // after the last time ends at 86400.
    std::vector<std::pair<int, int>> getTradingTime(const std::string& market) const;

    // The second of the day in UTC+8 for a UTC timestamp in seconds, not wrapped at midnight: 28800 to 115199, or less
    // than 28800 for timestamps before 1970.
    static int getSecondFromGMT(int t);

    // --- money-market funds

    // Whether the platform pays for the fund from the securities lending balance first: either it lists the fund, or it
    // lists only "ALL" and the instrument is a money-market fund. False for an unlisted platform. Not locked.
    bool isMonetaryFundUseSloBalanceFirst(int platformId, const std::string& market, const std::string& code) const;

    // Whether the price of a fund that is not traded must be fixed; false without the key. A load replaces the funds of
    // the markets it names and keeps the others. Locks shared: safe to call during a load.
    bool isNeedFixPriceByNonTradeMonetaryFund(const std::string& market, const std::string& code) const;

    // --- fixed answers

    bool getUseNewIPOFrozenCalcMethod() const;                    // true
    bool isCrtFundTransferUseCreditDetail(int platformId) const;  // true for every platform
    bool isNeedUseETFOneCode() const;                             // true
    std::string getQuoterAdress() const;                          // empty (sic)

protected:
    // For the library's own sources only: elsewhere the state is an incomplete type, and none of these is exported.
    TRADERBASE_HIDDEN explicit ConfigCollector(std::unique_ptr<internal::StoreState> initial);

    // The second of the trading day: from 20:30:00 on, times count as negative seconds of the next trading day.
    // getSerialNumber() takes HHMMSS.
    TRADERBASE_HIDDEN static int getRealNumber(int secondOfDay);
    TRADERBASE_HIDDEN static int getSerialNumber(int clockTime);

    const std::unique_ptr<internal::StoreState> state;
};

}  // namespace ttservice
