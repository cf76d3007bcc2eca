#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "ttplatform/enums.h"
#include "ttplatform/export.h"
#include "ttplatform/tradercenter.h"

namespace standin {

// A set of code patterns. A pattern is an exact code, or a prefix followed by "*"; "*" alone matches every code. A "*"
// anywhere but at the end is an ordinary character.
class TTPLATFORM_API CodePatterns {
public:
    void add(const std::string& pattern);
    bool matches(const std::string& code) const;

private:
    std::unordered_set<std::string> exactCodes;
    // No prefix in here starts with another one, so the only candidate for a code is the greatest prefix not above it.
    std::set<std::string> prefixes;
};

// Code patterns by market; markets match exactly.
class TTPLATFORM_API InstrumentSet {
public:
    void add(const std::string& market, const std::string& pattern);
    bool contains(const std::string& market, const std::string& code) const;
    void addMarketNames(std::set<std::string>& names) const;

private:
    std::unordered_map<std::string, CodePatterns> byMarket;
};

// The data behind all stand-in services. Filled by code or from a platform data file, then installed, and read-only
// from then on. Empty data answers "no" to everything: no types, no records, no rights, market number -1, bond trade
// type 1. Adding the same thing twice has no effect; where a question can have only one answer, the later one counts.
class TTPLATFORM_API PlatformData {
public:
    // Two separate tables of types: an instrument added to one is not in the other.
    void addStockType(int type, const std::string& market, const std::string& pattern);
    void addBaseType(int type, const std::string& market, const std::string& pattern);
    void setMarketNumber(const std::string& market, int number);
    // Gives the instrument a record, or adds these fields to its record. Records already handed out do not change.
    void addInstrument(const std::string& market, const std::string& code, const std::map<int, int>& fields);
    void setBondRule(const std::string& market, const std::string& code, int tradeType, const BondRuleRecord& rule);
    void addNewRulesBond(const std::string& market, const std::string& pattern);
    void setBondTradeType(int operation, int tradeType);
    void addTechBoardCdr(const std::string& market, const std::string& pattern);
    void addIssueAdditional(const std::string& market, const std::string& pattern);
    void addFirstMarketTest(const std::string& market, const std::string& pattern);
    void addSecondMarketTest(const std::string& market, const std::string& pattern);
    void addRight(const std::string& group, const std::string& product);

    // Queries; none of them allocates.
    bool isStockType(int type, const std::string& market, const std::string& code) const;
    bool isBaseType(int type, const std::string& market, const std::string& code) const;
    int marketNumber(const std::string& market) const;
    boost::shared_ptr<const IInstrumentRecord> instrument(const std::string& market, const std::string& code) const;
    boost::shared_ptr<const BondRuleRecord> bondRule(const std::string& market, const std::string& code,
                                                     int tradeType) const;
    bool isNewRulesBond(const std::string& market, const std::string& code) const;
    int bondTradeType(int operation) const;
    bool isTechBoardCdr(const std::string& market, const std::string& code) const;
    bool isIssueAdditional(const std::string& market, const std::string& code) const;
    bool passesFirstMarketTest(const std::string& market, const std::string& code) const;
    bool passesSecondMarketTest(const std::string& market, const std::string& code) const;
    bool hasRight(const std::string& group, const std::string& product) const;

    // Every market that appears anywhere in the data.
    std::set<std::string> marketNames() const;

    // The data that the services answer from now; empty data if none was installed. Never null.
    static std::shared_ptr<const PlatformData> current();

    // Makes the services answer from this data. Like a load, call it only while no queries run. The previous data is
    // still kept until the next call, so that a query already running on another thread can finish.
    static void install(std::shared_ptr<const PlatformData> data);
    static void install(PlatformData data);

private:
    template <typename Value>
    using ByCode = std::unordered_map<std::string, std::unordered_map<std::string, Value>>;

    std::unordered_map<int, InstrumentSet> stockTypes;
    std::unordered_map<int, InstrumentSet> baseTypes;
    std::unordered_map<std::string, int> markets;
    ByCode<boost::shared_ptr<const IInstrumentRecord>> instruments;
    ByCode<std::map<int, boost::shared_ptr<const BondRuleRecord>>> bondRules;
    InstrumentSet newRulesBonds;
    std::unordered_map<int, int> bondTradeTypes;
    InstrumentSet techBoardCdr;
    InstrumentSet issueAdditional;
    InstrumentSet firstMarketTest;
    InstrumentSet secondMarketTest;
    std::unordered_map<std::string, std::unordered_set<std::string>> rights;
};

}  // namespace standin
