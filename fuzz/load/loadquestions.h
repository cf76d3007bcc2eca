#pragma once

#include <map>
#include <string_view>

#include <boost/shared_ptr.hpp>

#include "fuzz/load/slowstore.h"
#include "fuzz/support/namedin.h"
#include "traderbase/base/config/configcollector.h"

namespace fuzz {

// Checks the identity of the returned rate records: each row of the slow store has one object, and no two rows share
// one. Keeps all records, so that no address is reused.
class HandedOut {
public:
    template <typename Record>
    void check(const boost::shared_ptr<Record>& record, const SlowRates& expected);

private:
    std::map<int, boost::shared_ptr<const void>> byRow;
    std::map<const void*, int> rowOf;
};

// A store and its slow counterpart, after the same loads and the same queries.
struct Asked {
    ttservice::ConfigCollector& store;
    SlowStore& slow;
    const Named& named;
    HandedOut& handedOut;
};

// Each function makes the queries of one topic, with names from the input and with others, and ends the program if an
// answer differs from the slow store's.

// --- loadquestions.cpp
void askSwitches(const Asked& asked);
void askSingles(const Asked& asked);
void askPlatformValues(const Asked& asked);
void askCredit(const Asked& asked);

// --- limitquestions.cpp
void askLimits(const Asked& asked);
void askBonds(const Asked& asked);

// --- cataloguequestions.cpp
void askContracts(const Asked& asked);
void askProducts(const Asked& asked);
void askFunds(const Asked& asked);

// Calls all functions above.
void askEverything(const Asked& asked);

// --- unitquestions.cpp: trade units, which depend on settings only a little
void askUnits(const Asked& asked);

}  // namespace fuzz
