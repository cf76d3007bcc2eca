#pragma once

#include <functional>
#include <string_view>

#include "ttplatform/export.h"

namespace standin {

// One query to a stand-in service, seen before it is answered.
struct Query {
    // The operation's name, such as "StockTypeCenter::isTypedStock" or "Configuration::readInt".
    std::string_view operation;
    // The type, operation or field number in the query; 0 if it has none.
    int number = 0;
    // The market, section, rights group or path, and the code, key or product; empty if there is none.
    std::string_view first;
    std::string_view second;
};

using QueryHook = std::function<void(const Query&)>;

// Calls the hook for every later query. For tests: a recording hook pins which queries are made and in which order, a
// throwing hook simulates a host that fails. An empty hook switches this off. Set it while no queries run; the hook
// runs on the querying thread, and its exceptions reach the caller.
TTPLATFORM_API void setQueryHook(QueryHook hook);

// Called by the stand-in services. Without a hook it costs one read of a flag.
void showQuery(std::string_view operation, int number, std::string_view first, std::string_view second);

}  // namespace standin
