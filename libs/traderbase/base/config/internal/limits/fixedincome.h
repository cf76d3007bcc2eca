#pragma once

#include <string_view>

#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/shfixincomelimit.h"

namespace ttservice::internal {

// The keys of the fixed-income platform in load order, each with its bond trade type.
struct FixedIncomeKey {
    const SettingKey* key;
    int bondTradeType;
};
inline constexpr FixedIncomeKey kFixedIncomeKeys[] = {
    {&keys::shFixIncome, 2}, {&keys::shLoanClickDeal, 3}, {&keys::shLoanEnquiryDeal, 4}, {&keys::shLoanBidDeal, 5}};

// The order parameters in a fixed-income value: a decimal and six integers. Null unless the value has exactly seven
// fields.
boost::shared_ptr<SHFixIncomeLimit> fixedIncomeLimit(std::string_view value);

}  // namespace ttservice::internal
