#pragma once

#include <string>
#include <string_view>

#include "standin/platformdata.h"
#include "ttplatform/export.h"

namespace standin {

// Reads platform data from JSON. Every top-level member is optional:
//
//   markets          {"SH": 1}                                           market -> number
//   stockTypes       [{"type": 100003, "market": "SH", "codes": ["600000", "601*"]}]
//   baseTypes        the same shape
//   instruments      [{"market": "HGT", "code": "00700", "fields": {"2001": 100}}]
//   bondRules        [{"market": "SZ", "code": "123001", "tradeType": 1, "buyMinUnit": 10, "sellMinUnit": 1}]
//   newRulesBonds    [{"market": "SZ", "codes": ["12*"]}]
//   bondTradeTypes   {"30": 2}                                           operation -> bond trade type
//   techBoardCdr     [{"market": "SH", "codes": ["689*"]}]
//   issueAdditional  the same shape
//   marketTests      {"first": [...], "second": [...]}                   each of the same shape
//   rights           {"mdl_alg": ["mdl_alg_twap"]}                       group -> products
//
// Inside an entry every member is required except "fields", "buyMinUnit" and "sellMinUnit", which default to empty
// and 0. A file is accepted whole or not at all. The first error rejects it: not JSON, nested too deep, a member given
// twice, an unknown name, a missing member or one of the wrong type, an integer that does not fit in 32 bits. The
// message is one line: the source's name, the member's path or the line and column, then the problem:
//
//   platform.json: stockTypes[3].codes: expected a list, found a number
//   platform.json: line 4, column 17: not JSON: ...

// Reads JSON text into data; the source's name is for messages. On false, data is unchanged and error says why.
TTPLATFORM_API bool parsePlatformData(std::string_view text, const std::string& source, PlatformData& data,
                                      std::string& error);

// Reads a file and installs its data. On false, the services answer as before and error says why.
TTPLATFORM_API bool installPlatformFile(const std::string& path, std::string& error);

}  // namespace standin
