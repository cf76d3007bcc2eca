#pragma once

namespace ttservice {

// The order parameters of one bond trade type on the Shanghai fixed-income platform, in the order in which the settings
// file gives them. What each of them limits is for the order checks of the trading core to say; here they are numbers.
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
