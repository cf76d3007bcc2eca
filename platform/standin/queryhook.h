#pragma once

#include <functional>
#include <string_view>

#include "ttplatform/export.h"

namespace standin {

// One question put to a stand-in service, seen before it is answered.
struct Query {
    // The operation's name, such as "StockTypeCenter::isTypedStock" or "Configuration::readInt".
    std::string_view operation;
    // The type, operation or field number of the question; 0 where it has none.
    int number = 0;
    // The market, section, rights group or path, and the code, key or product; empty where there is none.
    std::string_view first;
    std::string_view second;
};

using QueryHook = std::function<void(const Query&)>;

// Shows every later question to the hook, for tests: one that records pins which questions are put and in which order,
// one that throws plays a host that fails. An empty hook ends it. Set it while nobody asks; it is called on whichever
// thread asks, and what it throws reaches the asker.
TTPLATFORM_API void setQueryHook(QueryHook hook);

// Called by the stand-in services. Costs one read of a flag while no hook is set.
void showQuery(std::string_view operation, int number, std::string_view first, std::string_view second);

}  // namespace standin
