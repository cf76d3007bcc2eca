#pragma once

#include <string>

#include "ttconfig/scripts/childprocess.h"

namespace ttconfig {

// What an examination sends, one JSON object per line:
//   {"doing": "getMarkets"}                                     what is tried next
//   {"printed": TEXT}                                           the script's printLog
//   {"where": "getMarkets", "line": 12, "message": TEXT}        a problem; line 0 means unknown
//   {"markets": 18} / {"algorithms": 9}                         how many were examined, sent at the end

// Loads the script and asks everything that the client could ask: the market-time functions if the script defines any
// of them, and likewise the algorithm functions. Reports a script that defines neither.
void examineScript(const std::string& path, const SendLine& send);

}  // namespace ttconfig
