#pragma once

#include <string_view>

#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/shfixincomelimit.h"

namespace ttservice::internal {

// The order parameters that a fixed-income value gives: a decimal and six integers. Null when it has not exactly seven
// fields.
boost::shared_ptr<SHFixIncomeLimit> fixedIncomeLimit(std::string_view value);

}  // namespace ttservice::internal
