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

// A request that cannot be carried out; the text says what was wrong.
class CallRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// The distinct record objects that a session has seen, numbered from 1. It keeps them alive, so that no later record
// can take the address, and with it the number, of an earlier one.
class Records {
public:
    // The record's number; a new one for a record not seen before.
    template <typename Record>
    int numberOf(const boost::shared_ptr<Record>& record) {
        return enter(record, typeid(std::remove_const_t<Record>));
    }

    // The record of that number; throws CallRefused when there is none or when it is of another type.
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
