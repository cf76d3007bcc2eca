#pragma once

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "ttconfig/reasons/explainedcalls.h"

namespace ttconfig {

// A question that a section answers in which every key is a code and every value its number: the code as it is asked
// for, found as a key is written or in upper case.
ExplainedCall numberRowCall(const ttservice::internal::SettingKey& topic,
                            const NumberRows& (SettingsFacts::*rows)() const, double whenMissing);

}  // namespace ttconfig
