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
// Thread safety. instance() may be called from anywhere at any time. The platform switches (setPts, getPts, getAllpts,
// isSomePt and every predicate) are guarded by a reader/writer lock and may be asked and replaced at any time. All
// other operations take no lock: the client loads and sets its overrides before other threads ask, and from then on any
// number of threads may ask at once. What deviates from this says so below.
//
// A platform is a broker counter, named by an int. No operation throws for a missing or wrong setting: every question
// has an answer when nothing is configured. Answers are copies, or shared records that stay valid after a reload.
class TRADERBASE_API ConfigCollector {
public:
    // --- the store itself

    // The process's one store, built by the first call: defaults, no switches, market times from the script. Destroyed
    // when the process ends, unless somebody still holds it; who asks after that, from the destructor of a static
    // object, gets one for himself, as before any load. While static objects are destroyed, no other thread may ask.
    static boost::shared_ptr<ConfigCollector> instance();

    ConfigCollector(const ConfigCollector&) = delete;
    ConfigCollector& operator=(const ConfigCollector&) = delete;
    ~ConfigCollector();

    // Loads a settings file; call again to reload. A file that is missing or cannot be read sets every key's default.
    // Switches are merged key by key: a key that the file no longer has keeps its list. Local overrides and run-time
    // values stay. Bad pieces of a value are passed over with one line each on the standard error stream.
    void readConfig(std::string path);

    // The path given to the last readConfig; empty before any.
    void getOriginalStr(std::string& out) const;

    // --- platform switches: local overrides
    // An override answers for its key, for every platform, before the settings file does.

    // Sets the override of one switch key, in addition to those there are. Not locked.
    void addLocalConfig(const std::string& name, bool value);

    // Replaces all overrides; an empty map removes them. Not locked.
    void setUseLocalConfig(const std::map<std::string, bool>& overrides);

    // --- platform switches: the table

    // Replaces the platform list of each key given and leaves all others. Locks exclusively.
    void setPts(std::map<std::string, std::vector<int>> lists);

    // The platforms listed under a key, in file order; empty for an unknown key. Locks shared.
    std::vector<int> getPts(const std::string& key) const;

    // All keys of section "setting" with their platform lists, those of scalar keys included. Locks shared.
    std::map<std::string, std::vector<int>> getAllpts() const;

    // The override of the key if there is one, else whether the platform is listed under it; false for an unknown key.
    // Locks shared.
    bool isSomePt(std::string_view key, int platformId) const;

    // The predicates, one a row of platformswitches.def: isSomePt() of the row's key, turned round for the two rows
    // that read NotListed. Without the key: false, and true for those two. Lock shared.
#define TT_PLATFORM_SWITCH(predicate, key, sense, meaning) bool predicate(int platformId) const;
#include "traderbase/base/config/platformswitches.def"

    // Whether the platform's number, in decimal, is the ETF broker client tag; false without a tag. Not locked.
    bool isCanQueryETFFromCounter(int platformId) const;

    // Replaces the split permissions, a level for each name. Not locked.
    void setSplitPermission(const std::map<std::string, int>& permissions);

    // The level set for the name; 0 for an unknown one.
    int getMaxPermission(std::string name) const;

    // --- single values of the settings file
    // A flag is true exactly when its key reads as 1. Without the key: false, unless said otherwise.

    bool isShowMaxCanOrder() const;
    bool showNewCompacts() const;
    bool useRegistRules() const;
    bool useRegistIPORules() const;
    bool useGlobalRef() const;
    bool useSplitPageOfStkCompact() const;
    bool isCreditCompactDeferT3() const;

    // The new bond rules of market "SH" or "SZ", written exactly so; false for every other market.
    bool useNewBondRules(const std::string& market) const;

    // The Shanghai new bond rules; the key that bears this operation's name is read and has no effect.
    bool useNewShangHaiLoanRules() const;

    // "refLimit"; 0 without it.
    int getRefLimit() const;

    // Days of flow history; -1 without the key.
    int getFlowHistoryDays() const;

    // The price difference of the connect markets as it stands in the file; empty without the key.
    std::string getHgtSgtPriceDiff() const;

    // --- one value for each platform
    // The value given for the platform, else the value's default item, else the default named here. A file that names
    // platforms and no default leaves the default of the load before (false / 0 on the first load).

    bool isT0ForReturnStockPts(int platformId) const;               // true
    bool isSPXCreditStockPts(int platformId) const;                 // false
    bool isMainAccountcalcCompactsBydealPts(int platformId) const;  // true
    int getRenewalPts(int platformId) const;                        // 0
    int getCounterMaxCompactsRespNum(int platformId) const;         // 500 contracts
    bool useCounterIpwanPos(int platformId) const;                  // true; any value but 0 is yes

    // --- limits of one order
    // Markets and codes are taken in either letter case. A row for the code comes before a row for its category.

    // The largest quantity that one order may carry, and its unit word; (1000000, "股") when no row fits. Inserts that
    // default for the category: serialise with loads and other limit queries.
    std::pair<int, std::string> getOrderLimit(const std::string& market, const std::string& code,
                                              EBrokerPriceType priceType);

    // The largest quantity of one block trade, and its unit word; (1000000, "股") without a row. Answered by category
    // alone, never by code; inserts nothing.
    std::pair<int, std::string> getDazongOrderNumLimit(const std::string& market, const std::string& code) const;

    // The largest amount of one block trade, as the file's own number; 1000000 without a row. By category alone, from
    // fewer categories than the quantity; inserts nothing.
    int getDazongOrderTradeAmountLimit(const std::string& market, const std::string& code) const;

    // --- exchange rate limits
    // The shared record (ttplatform/ratelimitrecords.h) of the code's row, else of its category's row; never null.
    // Without a row a record of zeros is made and kept for the category until the next load: serialise with loads and
    // other limit queries.

    boost::shared_ptr<CStkExchangeRateLimit> getRateLimitPtr(std::string market, std::string code);

    // The Shanghai connect; market "HK" stands for "HGT".
    boost::shared_ptr<CCustomHGTExchangeRateLimit> getHGTExchangeRateLimitPtr(std::string market, std::string code);

    // The Shenzhen connect; market "HK" stands for "SGT". The only category is "STOCK", for bonds too.
    boost::shared_ptr<CCustomSgtExchangeRateLimit> getSgtExchangeRateLimitPtr(std::string market, std::string code);

    // --- bonds

    // The order parameters (shfixincomelimit.h) of a bond trade type on the Shanghai fixed-income platform, shared;
    // null for a type that no load has set. A reload replaces only the types that it has well-formed values for.
    boost::shared_ptr<SHFixIncomeLimit> getSHFixIncomeLimit(EBondTradeType tradeType) const;

    // The usage ratio of a standard bond; 1.0 for an unknown code. The code is taken as it stands: a row written in
    // lower case is found in lower and in upper case, one written in upper case in upper case only.
    double getStandardBondUseLimit(const std::string& code) const;

    // --- credit ratios by platform

    // Whether the platform has concentration ratios for buying with collateral, and if so which; false leaves both
    // outputs alone. Locks a mutex of its own: may be asked while a load runs.
    bool isUseConcentrationRatioPts(const int& platformId, double& first, double& second) const;

    // Whether selling the code as collateral repays debt; false for a platform or code that is not listed, letter case
    // included. Locks shared, as the platform switches do: may be asked while a load runs.
    bool isRepayDebtByCollateralSell(int platformId, const std::string& code) const;

    // The number given for the platform, else the value's default item, else the number named here; beside it, whether
    // the platform is listed, be it with 0.
    double getisSetavailable(int platformId) const;  // 0
    bool isSetavailable(int platformId) const;
    double getSpecailEnableVolStkExchangeRate(int platformId) const;  // 0 (sic)
    bool isUseSpecialEnableBalCalcVolume(int platformId) const;
    double getFinEnableBailRatio(int platformId) const;  // 0.6, whatever the file says: no load reads its key
    bool isUseFinEnableBailRatio(int platformId) const;  // false for every platform, for the same reason

    // The flag given for the platform, else the value's default item, else false.
    bool isNeedCheckAssureEnbuyBalancePts(int platformId) const;

    // --- run-time values, set by the client
    // Plain stores and reads, untouched by readConfig. The comment gives the answer before the first set.

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

    // One way: the calculation cannot be switched on again in this process.
    void setNoNeedCalcAccountDetail();
    bool isNeedCalcAccountDetail() const;  // true

    // Also writes one INFO line to the standard logger.
    void setUseOrderIdFunction(bool use);
    bool useOrderIdFunction() const;  // true

    // The rate type while the customer rate is in use, otherwise -1.
    void setHKUseCustRate(bool use);
    void setHKRateType(int rateType);
    int getHKUseCustRateType() const;  // -1

    // "1" sets, "0" clears, every other text leaves it as it is.
    void setHideModel(const std::string& text);
    bool getHideModel() const;  // false

    void setLocalDiskPathHash(const std::string& hash);
    std::string getLocalDiskPathHash() const;  // empty

    void setLocalInfoFormat(const std::string& format);
    std::string getLocalInfoFormat() const;  // empty

    void setQeTsConfig(const std::string& config);
    void getQeTsConfigStr(std::string& out) const;  // empty

    // --- algorithm products
    // A load adds to the products and their algorithm types and replaces what has the same name; what is no longer in
    // the file stays. Records handed out are never changed. The lists of names below are replaced whole.

    // The product's record for credit or for stock accounts; null without one. Not locked.
    boost::shared_ptr<ContractInfo> getContractInfo(const std::string& productId, bool isCredit) const;

    // All records for accounts of kind 2 (stock) or 3 (credit), in the order of their keys; empty for other kinds.
    std::vector<boost::shared_ptr<ContractInfo>> getContractInfo(int accountKind) const;

    // All records by key: the product ID followed by "_stock" or "_credit".
    std::map<std::string, boost::shared_ptr<ContractInfo>> getAllContractInfo() const;

    // The product that serves an algorithm type on credit or stock accounts; empty for an unknown name.
    // Enters an unknown name in the index: serialise with loads and with other calls of this operation.
    std::string getProductIdbyAlgoName(const std::string& algoName, bool isCredit);

    // Whether the product is served over HTTP; letter case counts. False without a list.
    bool isHttpProductID(const std::string& productId) const;

    // The smart algorithm types, and those whose buy/sell choice is hidden. Empty without the key; an empty piece of
    // the setting is an empty name.
    std::set<std::string> getAlgoTypes() const;
    std::set<std::string> getBuySellHideAlgoTypes() const;

    // The T0 strategies as they are written, each with its second name; empty without the key.
    std::vector<std::pair<std::string, std::string>> getT0Strategy() const;

    // --- special products

    // Subscription fee of a futures product, found by its code as written in the file and in upper case; 0.0 for any
    // other code. Replaced whole by a load.
    double getSubFee(const std::string& productCode) const;

    // The product that a combination's margin is charged on: the first of the group; the code itself in no group.
    // A load only adds groups; a product keeps the first answer that it got.
    std::string getSingleMarginProductName(const std::string& productCode) const;

    // The ETF broker client's tag and query times, as texts; empty before a load that names them, kept by one that
    // does not.
    std::string getETFBrokerCLientTag() const;                      // (sic)
    std::vector<std::string> getETFBrokerCLientQueryTimes() const;  // (sic)

    // --- market trading time
    // Times are seconds since midnight. Not locked: built with the store, and again only when the client asks for it.

    // Builds the sessions of all markets anew from a market-time script; "../luaScripts/MarketTime.lua" when none is
    // named. A script that names no markets leaves them as they are; Lua errors are logged at ERROR level. Memory that
    // runs out, the script's included, is std::bad_alloc and leaves them as they are; a script that takes 64 MiB or
    // more before it runs out is one that fails.
    void initMarketTradingTime();
    void initMarketTradingTime(const std::string& scriptPath);

    // Does so from texts that map a market to its JSON object of clock times (HHMMSS) and status codes: 50 opens a
    // session, 49 and 54 close it. No texts at all leave the sessions as they are; a text that is no JSON object gives
    // its market none.
    void initMarketTradingTime(const std::map<std::string, std::string>& sessionTexts);

    // The market's sessions as (start, end) in clock order; empty for a market that has none. One that is still open
    // after the last time ends at 86400.
    std::vector<std::pair<int, int>> getTradingTime(const std::string& market) const;

    // The second of the day in UTC+8 of a UTC time stamp in seconds, not wrapped into one day: 28800 to 115199, and
    // less than 28800 for a time stamp before 1970.
    static int getSecondFromGMT(int t);

    // --- money-market funds

    // Whether the platform pays for the fund from the securities lending balance first: it lists the fund, or nothing
    // but "ALL" and the instrument is a money-market fund. False for an unlisted platform. Not locked.
    bool isMonetaryFundUseSloBalanceFirst(int platformId, const std::string& market, const std::string& code) const;

    // Whether the price of a fund that is not traded has to be fixed; false without the key. A load replaces the funds
    // of the markets that it names and keeps the others. Locks shared: may be asked while a load runs.
    bool isNeedFixPriceByNonTradeMonetaryFund(const std::string& market, const std::string& code) const;

    // --- fixed answers

    bool getUseNewIPOFrozenCalcMethod() const;                    // true
    bool isCrtFundTransferUseCreditDetail(int platformId) const;  // true for every platform
    bool isNeedUseETFOneCode() const;                             // true
    std::string getQuoterAdress() const;                          // empty (sic)

protected:
    // For the library's own sources: elsewhere the state is an incomplete type, and none of these is exported.
    TRADERBASE_HIDDEN explicit ConfigCollector(std::unique_ptr<internal::StoreState> initial);

    // Seconds of the day, those from 20:30:00 on as negative seconds of the next trading day; the second takes HHMMSS.
    TRADERBASE_HIDDEN static int getRealNumber(int secondOfDay);
    TRADERBASE_HIDDEN static int getSerialNumber(int clockTime);

    const std::unique_ptr<internal::StoreState> state;
};

}  // namespace ttservice
