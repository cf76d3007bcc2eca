#pragma once

#include <string>

#include "ttplatform/export.h"

// The instrument catalogue: which numbered types an instrument has, and the number of a market.
//
// Thread safety: any number of threads may ask at once. No query allocates or throws for whatever texts it is given.
// What the type numbers and market numbers stand for is the host's business; markets match exactly, case included.
class TTPLATFORM_API StockTypeCenter {
public:
    // The one catalogue; alive for as long as anybody can ask, static destructors included.
    static StockTypeCenter& instance();

    StockTypeCenter(const StockTypeCenter&) = delete;
    StockTypeCenter& operator=(const StockTypeCenter&) = delete;

    // Whether the instrument belongs to the numbered type. False for whatever the host does not know. An instrument
    // may belong to several types, and a market is asked for as it stands: "SH" says nothing about "SSE".
    bool isTypedStock(int type, const std::string& market, const std::string& code) const;

    // The number of a market in the host's market enumeration; -1 for a market that it does not list.
    int getMarketEnumFromString(const std::string& market) const;

private:
    StockTypeCenter() = default;
    ~StockTypeCenter() = default;
};
