#pragma once

#include <string>

#include "ttplatform/export.h"

// The instrument catalogue: which numbered types an instrument has, and the number of a market.
//
// Thread safety: any number of threads may call at once. No query allocates or throws, whatever its arguments. The host
// decides what type numbers and market numbers mean; market names match exactly, including letter case.
class TTPLATFORM_API StockTypeCenter {
public:
    // The only catalogue. It is never destroyed, so static destructors may use it.
    static StockTypeCenter& instance();

    StockTypeCenter(const StockTypeCenter&) = delete;
    StockTypeCenter& operator=(const StockTypeCenter&) = delete;

    // Whether the instrument belongs to the numbered type; false for anything the host does not know. An instrument may
    // belong to several types. Market names are not translated: "SH" says nothing about "SSE".
    bool isTypedStock(int type, const std::string& market, const std::string& code) const;

    // The number of a market in the host's market enumeration; -1 for an unknown market.
    int getMarketEnumFromString(const std::string& market) const;

private:
    StockTypeCenter() = default;
    ~StockTypeCenter() = default;
};
