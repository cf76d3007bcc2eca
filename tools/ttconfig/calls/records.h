#pragma once

#include <boost/shared_ptr.hpp>
#include <map>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeindex>
#include <vector>

#include "ttconfig/text/answer.h"

namespace ttconfig {

// A request that cannot be carried out; the text says why.
class CallRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The distinct record objects that a session has seen, numbered from 1. They are kept alive so that a later record
// cannot reuse the address of an earlier one, and with it the number.
class Records {
public:
    // The record's number; a record not seen before gets a new one.
    template <typename Record>
    int numberOf(const boost::shared_ptr<Record>& record) {
        return enter(record, typeid(std::remove_const_t<Record>));
    }

    // The record with that number; throws CallRefused when there is none or when it has another type.
    template <typename Record>
    boost::shared_ptr<Record> find(int number) const {
        return boost::const_pointer_cast<Record>(
            boost::static_pointer_cast<const Record>(look(number, typeid(Record))));
    }

private:
    struct Seen {
        boost::shared_ptr<const void> record;
        std::type_index type;
    };

    int enter(boost::shared_ptr<const void> record, std::type_index type);
    boost::shared_ptr<const void> look(int number, std::type_index type) const;

    std::map<const void*, int> numbers;
    std::vector<Seen> seen;
};

}  // namespace ttconfig
