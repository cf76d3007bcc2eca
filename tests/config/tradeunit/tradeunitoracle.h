#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "tests/config/tradeunit/tradeunitbuylist.h"
#include "tests/config/tradeunit/tradeunitmade.h"

// The unit rules once more, as tables of conditions and results that are searched from the top: slow and obvious. They
// use what is known about an instrument instead of asking the platform.

namespace tests::oracle {

struct Question {
    const Made& made;
    int op;
    bool flag;
    unsigned switches;
    int marketNumber;
};

using Condition = std::function<bool(const Question&)>;
using Ranges = std::vector<std::pair<int, int>>;

// --- conditions

inline Condition no(Condition condition) {
    return [=](const Question& q) { return !condition(q); };
}
inline Condition either(std::vector<Condition> conditions) {
    return [=](const Question& q) {
        for (const auto& condition : conditions) {
            if (condition(q)) return true;
        }
        return false;
    };
}
inline Condition type(std::vector<int> numbers) {
    return [=](const Question& q) {
        for (const int number : numbers) {
            if (q.made.hasType(number)) return true;
        }
        return false;
    };
}
inline Condition base(std::vector<int> numbers) {
    return [=](const Question& q) {
        for (const int number : numbers) {
            if (q.made.hasBase(number)) return true;
        }
        return false;
    };
}
inline Condition codeTyped(int number, std::string market) {
    return [=](const Question& q) { return q.made.hasTypeOn(market, number); };
}
inline Condition market(std::vector<std::string> names) {
    return [=](const Question& q) {
        for (const auto& name : names) {
            if (q.made.market == name) return true;
        }
        return false;
    };
}
inline Condition op(Ranges ranges) {
    return [=](const Question& q) {
        for (const auto& [first, last] : ranges) {
            if (first <= q.op && q.op <= last) return true;
        }
        return false;
    };
}
inline Condition number(int first, int last) {
    return [=](const Question& q) { return first <= q.marketNumber && q.marketNumber <= last; };
}
inline Condition codeHas(std::vector<std::string> parts) {
    return [=](const Question& q) {
        for (const auto& part : parts) {
            if (q.made.code.find(part) != std::string::npos) return true;
        }
        return false;
    };
}
inline Condition codeIs(std::string code) {
    return [=](const Question& q) { return q.made.code == code; };
}
inline Condition step(int field) {
    return [=](const Question& q) { return q.made.field(field) != 0; };
}

inline const Condition flag = [](const Question& q) { return q.flag; };
inline const Condition record = [](const Question& q) { return q.made.fields.has_value(); };
inline const Condition additional = [](const Question& q) { return q.made.additional; };
inline const Condition cdr = [](const Question& q) { return q.made.techBoardCdr; };
inline const Condition marketTest = [](const Question& q) { return q.made.firstTest || q.made.secondTest; };
inline const Condition registered = [](const Question& q) { return (q.switches & kRegistered) != 0; };
inline const Condition newBonds = [](const Question& q) {
    const bool shanghai = q.made.market == "SH" && (q.switches & kShBonds) != 0;
    const bool shenzhen = q.made.market == "SZ" && (q.switches & kSzBonds) != 0;
    return (shanghai || shenzhen) && q.made.newRules && q.op != 30 && q.op != 31;
};
inline const Condition bondRule = [](const Question& q) { return q.made.bondRules.count(bondTradeTypeOf(q.op)) != 0; };
inline const Condition buysOrNone = [](const Question& q) { return q.op == -1 || kBuyList.count(q.op) != 0; };

// --- results

using Number = std::function<int(const Question&)>;

inline Number is(int value) {
    return [=](const Question&) { return value; };
}
inline Number field(int number) {
    return [=](const Question& q) { return q.made.field(number); };
}
inline const Number leastPurchase = [](const Question& q) {
    return q.made.bondRules.at(bondTradeTypeOf(q.op)).buyMinUnit;
};
inline const Number leastSale = [](const Question& q) {
    return q.made.bondRules.at(bondTradeTypeOf(q.op)).sellMinUnit;
};

// --- tables

template <typename Result>
struct Row {
    std::vector<Condition> all;
    Result result;
};

// The result of the first row whose conditions all hold; a table's last row has no conditions.
template <typename Result>
const Result& firstThatHolds(const std::vector<Row<Result>>& table, const Question& question) {
    for (const auto& row : table) {
        bool holds = true;
        for (const auto& condition : row.all)
            holds = holds && condition(question);
        if (holds) return row.result;
    }
    return table.back().result;
}

const std::vector<Row<std::string>>& wordTable();
const std::vector<Row<Number>>& exchangeTable();
const std::vector<Row<Number>>& minTable();
const std::vector<Row<Number>>& formTable();

}  // namespace tests::oracle
