#pragma once

#include <locale>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <ttplatform/ratelimitrecords.h>
#include <boost/shared_ptr.hpp>

#include "traderbase/base/config/contractinfo.h"
#include "traderbase/base/config/shfixincomelimit.h"

// The complete answer of an operation as text, for comparison.

namespace tests {

// Declared first, because each overload calls those for its parts.
template <typename Element>
std::string textOf(const std::vector<Element>& list);
template <typename Element>
std::string textOf(const std::set<Element>& set);
template <typename Key, typename Value>
std::string textOf(const std::map<Key, Value>& map);
template <typename Record>
std::string textOf(const boost::shared_ptr<Record>& record);
template <typename First, typename Second>
std::string textOf(const std::pair<First, Second>& pair);

inline std::string textOf(int number) {
    return std::to_string(number);
}
inline std::string textOf(double number) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << number;
    return text.str();
}
inline std::string textOf(const std::string& text) {
    return '"' + text + '"';
}
inline std::string textOf(const ttservice::ContractInfo& record) {
    return record.productId + record.textValue + textOf(record.doubleValue) + std::to_string(record.longValue) +
           textOf(record.intValue);
}
inline std::string textOf(const IData& record) {
    return record.toLog();
}
inline std::string textOf(const ttservice::SHFixIncomeLimit& limit) {
    return textOf(limit.doubleValue) + ' ' + textOf(limit.intValue1) + ' ' + textOf(limit.intValue6);
}
template <typename Record>
std::string textOf(const boost::shared_ptr<Record>& record) {
    return record ? textOf(*record) : "null";
}
template <typename First, typename Second>
std::string textOf(const std::pair<First, Second>& pair) {
    return textOf(pair.first) + ": " + textOf(pair.second);
}
template <typename Table>
std::string textOfEach(const Table& table) {
    std::string text;
    for (const auto& entry : table)
        text += textOf(entry) + "; ";
    return text;
}
template <typename Element>
std::string textOf(const std::vector<Element>& list) {
    return textOfEach(list);
}
template <typename Element>
std::string textOf(const std::set<Element>& set) {
    return textOfEach(set);
}
template <typename Key, typename Value>
std::string textOf(const std::map<Key, Value>& map) {
    return textOfEach(map);
}

}  // namespace tests
