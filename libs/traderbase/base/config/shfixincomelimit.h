#pragma once

namespace ttservice {

// The order parameters of one bond trade type on the Shanghai fixed-income platform, in the order of the settings file.
// The store treats them as plain numbers; the trading core's order checks decide what each one limits.
struct SHFixIncomeLimit {
    double doubleValue = 0.0;
    int intValue1 = 0;
    int intValue2 = 0;
    int intValue3 = 0;
    int intValue4 = 0;
    int intValue5 = 0;
    int intValue6 = 0;
};

}  // namespace ttservice
