#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ttplatform/enums.h"
#include "ttplatform/export.h"

// The data center's record of one instrument.
class TTPLATFORM_API IInstrumentRecord {
public:
    virtual ~IInstrumentRecord();

    // The integer field with that number (2001: trading unit; 2009 and 2013: minimum order steps); 0 when the record
    // has no such field.
    virtual int getInt(int fieldId) const = 0;

protected:
    IInstrumentRecord() = default;
    IInstrumentRecord(const IInstrumentRecord&) = default;
    IInstrumentRecord& operator=(const IInstrumentRecord&) = default;
};

// The data center's order rule for one bond in one trade type: the minimum order quantities for buying and selling.
struct BondRuleRecord {
    int buyMinUnit = 0;
    int sellMinUnit = 0;
};

// The data service of the trading centre.
//
// Thread safety: any number of threads may call at once. No query allocates or throws, whatever its arguments. Returned
// records never change and stay valid for as long as they are held.
class TTPLATFORM_API IDataCenter {
public:
    virtual ~IDataCenter();

    // The record of an instrument; null when there is none.
    virtual boost::shared_ptr<const IInstrumentRecord> getInstrument(const std::string& market,
                                                                     const std::string& code) const = 0;

    // The order rule of a bond in a trade type; null when there is none for exactly that trade type.
    virtual boost::shared_ptr<const BondRuleRecord> getBondRule(const std::string& market, const std::string& code,
                                                                EBondTradeType tradeType) const = 0;

    // Two further market tests. An instrument that passes either one is ordered in its record's trading unit, like the
    // connect markets. The host decides what the tests mean; the answer for an unknown instrument is false.
    virtual bool passesFirstMarketTest(const std::string& market, const std::string& code) const = 0;
    virtual bool passesSecondMarketTest(const std::string& market, const std::string& code) const = 0;

protected:
    IDataCenter() = default;
    IDataCenter(const IDataCenter&) = default;
    IDataCenter& operator=(const IDataCenter&) = default;
};

// Access to the services of the trading core.
class TTPLATFORM_API TraderCenter {
public:
    // The only trading centre. It is never destroyed, so static destructors may use it.
    static TraderCenter& instance();

    TraderCenter(const TraderCenter&) = delete;
    TraderCenter& operator=(const TraderCenter&) = delete;

    // The data service; the same object on every call.
    const IDataCenter& getDataCenter() const;

private:
    TraderCenter() = default;
    ~TraderCenter() = default;
};
