#pragma once

#include <string>

#include "ttconfig/scripts/childprocess.h"

namespace ttconfig {

// What an examination sends, one JSON object a line:
//   {"doing": "getMarkets"}                                     what is tried next
//   {"printed": TEXT}                                           the script's printLog
//   {"where": "getMarkets", "line": 12, "message": TEXT}        something is wrong; line 0: not known
//   {"markets": 18} / {"algorithms": 9}                         what was examined, at its end

// Loads the script and asks everything that the client could ask: the market-time functions if it defines any of them,
// and likewise the algorithm functions. A script that defines neither is told so.
void examineScript(const std::string& path, const SendLine& send);

}  // namespace ttconfig
