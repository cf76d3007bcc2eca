#pragma once

#include <map>
#include <string_view>

#include <boost/shared_ptr.hpp>

#include "fuzz/namedin.h"
#include "fuzz/slowstore.h"
#include "traderbase/base/config/configcollector.h"

namespace fuzz {

// The rate records that were handed out: one object for each row of the slow store, and no object for two of them. All
// are kept, so that none can come back as another one.
class HandedOut {
public:
    template <typename Record>
    void check(const boost::shared_ptr<Record>& record, const SlowRates& expected);

private:
    std::map<int, boost::shared_ptr<const void>> byRow;
    std::map<const void*, int> rowOf;
};

// A store and what it has to answer from, after the same loads and the same questions.
struct Asked {
    ttservice::ConfigCollector& store;
    SlowStore& slow;
    const Named& named;
    HandedOut& handedOut;
};

// Each puts a topic's questions, about what is named and about what is not, and ends the program where an answer is not
// that of the slow store.

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

// All of these.
void askEverything(const Asked& asked);

// --- unitquestions.cpp, which the settings have little to say about
void askUnits(const Asked& asked);

}  // namespace fuzz
