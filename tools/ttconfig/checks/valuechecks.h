#pragma once

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/checks/context.h"
#include "ttconfig/checks/remarks.h"

namespace ttconfig {

// Checks the value of an entry, and its key where keys are data, by topic. The pieces come from the readers' own
// grammars.

// A platform switch.
void checkSwitch(EntryRemarks& remarks, SettingsContext& context);

// A flag, a whole number or a text for the whole client.
void checkSingleValue(EntryRemarks& remarks, const ttservice::internal::SettingKey& row);
// A decimal under a key that is data: a fee or a ratio.
void checkDecimalRow(EntryRemarks& remarks, SettingsContext& context, const ttservice::internal::SettingKey& row);

// Values by platform, whether or not empty items count.
void checkPlatformValues(EntryRemarks& remarks, const ttservice::internal::SettingKey& row);

// Rows of the limit sections, and of the fixed-income platform.
void checkLimitRow(EntryRemarks& remarks, SettingsContext& context, const ttservice::internal::SettingKey& row);
void checkFixedIncome(EntryRemarks& remarks, const ttservice::internal::SettingKey& row);

// The two lists of the credit section.
void checkConcentration(EntryRemarks& remarks, const ttservice::internal::SettingKey& row);
void checkCollateralSale(EntryRemarks& remarks);

// Algorithm products and types.
void checkContracts(EntryRemarks& remarks);
void checkContractTypes(EntryRemarks& remarks, SettingsContext& context);
void checkHttpProducts(EntryRemarks& remarks, SettingsContext& context);
void checkPairs(EntryRemarks& remarks);
void checkTexts(EntryRemarks& remarks, char separator);

// Futures, ETFs and funds.
void checkTag(EntryRemarks& remarks);
void checkProductGroups(EntryRemarks& remarks, SettingsContext& context);
void checkMarketCodes(EntryRemarks& remarks, SettingsContext& context);
void checkFunds(EntryRemarks& remarks, SettingsContext& context);

}  // namespace ttconfig
