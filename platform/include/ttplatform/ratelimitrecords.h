#pragma once

#include <string>

#include "ttplatform/export.h"
#include "ttplatform/idata.h"

// Exchange rate limits, one record type per family of markets. Members are declared in the order of the fields in a
// settings row. A new record holds zeros: no parameter is set. The order checks of the trading core decide what each
// parameter limits; these records only carry the numbers, in the units of the row.

// Ordinary exchange instruments: six decimal parameters, then a count.
class TTPLATFORM_API CStkExchangeRateLimit : public IData {
public:
    std::string toLog() const override;

    double rate1 = 0.0;
    double rate2 = 0.0;
    double rate3 = 0.0;
    double rate4 = 0.0;
    double rate5 = 0.0;
    double rate6 = 0.0;
    int count = 0;
};

// Instruments of the Shanghai connect: fourteen decimal parameters.
class TTPLATFORM_API CCustomHGTExchangeRateLimit : public IData {
public:
    std::string toLog() const override;

    double rate1 = 0.0;
    double rate2 = 0.0;
    double rate3 = 0.0;
    double rate4 = 0.0;
    double rate5 = 0.0;
    double rate6 = 0.0;
    double rate7 = 0.0;
    double rate8 = 0.0;
    double rate9 = 0.0;
    double rate10 = 0.0;
    double rate11 = 0.0;
    double rate12 = 0.0;
    double rate13 = 0.0;
    double rate14 = 0.0;
};

// Instruments of the Shenzhen connect: fourteen decimal parameters.
class TTPLATFORM_API CCustomSgtExchangeRateLimit : public IData {
public:
    std::string toLog() const override;

    double rate1 = 0.0;
    double rate2 = 0.0;
    double rate3 = 0.0;
    double rate4 = 0.0;
    double rate5 = 0.0;
    double rate6 = 0.0;
    double rate7 = 0.0;
    double rate8 = 0.0;
    double rate9 = 0.0;
    double rate10 = 0.0;
    double rate11 = 0.0;
    double rate12 = 0.0;
    double rate13 = 0.0;
    double rate14 = 0.0;
};
