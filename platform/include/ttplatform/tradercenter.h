#pragma once

#include <boost/shared_ptr.hpp>
#include <string>

#include "ttplatform/enums.h"
#include "ttplatform/export.h"

// The data center's record of one instrument.
class TTPLATFORM_API IInstrumentRecord {
public:
    virtual ~IInstrumentRecord();

    // The integer field of that number (2001: the trading unit; 2009 and 2013: minimum order steps); 0 for a field
    // that the record does not have.
    virtual int getInt(int fieldId) const = 0;

protected:
    IInstrumentRecord() = default;
    IInstrumentRecord(const IInstrumentRecord&) = default;
    IInstrumentRecord& operator=(const IInstrumentRecord&) = default;
};

// The data center's order rule for one bond in one trade type: the least quantity of a purchase and of a sale.
struct BondRuleRecord {
    int buyMinUnit = 0;
    int sellMinUnit = 0;
};

// The data service of the trading centre.
//
// Thread safety: any number of threads may ask at once. No query allocates or throws for whatever texts it is given.
// Records handed out are never changed afterwards and stay valid for as long as they are held.
class TTPLATFORM_API IDataCenter {
public:
    virtual ~IDataCenter();

    // The record of an instrument; null when the data center has none.
    virtual boost::shared_ptr<const IInstrumentRecord> getInstrument(const std::string& market,
                                                                     const std::string& code) const = 0;

    // The order rule of a bond in a trade type; null when the data center has none for exactly that trade type.
    virtual boost::shared_ptr<const BondRuleRecord> getBondRule(const std::string& market, const std::string& code,
                                                                EBondTradeType tradeType) const = 0;

    // Two further market tests. An instrument that passes either is counted in its record's trading unit, as the
    // connect markets are. What they test is the host's business; false for an instrument that it does not know.
    virtual bool passesFirstMarketTest(const std::string& market, const std::string& code) const = 0;
    virtual bool passesSecondMarketTest(const std::string& market, const std::string& code) const = 0;

protected:
    IDataCenter() = default;
    IDataCenter(const IDataCenter&) = default;
    IDataCenter& operator=(const IDataCenter&) = default;
};

// The way to the services of the trading core.
class TTPLATFORM_API TraderCenter {
public:
    // The one trading centre; alive for as long as anybody can ask, static destructors included.
    static TraderCenter& instance();

    TraderCenter(const TraderCenter&) = delete;
    TraderCenter& operator=(const TraderCenter&) = delete;

    // The data service, the same one at every call.
    const IDataCenter& getDataCenter() const;

private:
    TraderCenter() = default;
    ~TraderCenter() = default;
};
