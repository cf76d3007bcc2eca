// Bad values: tells the world that a piece of a settings value was passed over.
// Doors: reportBadValue().
// Owns: nothing.
// Covered by tests/config/internal/platformlist_test.cpp and perplatformlist_test.cpp.

#include "traderbase/base/config/internal/badvalue.h"

#include <iostream>
#include <string>

#include <boost/lexical_cast/bad_lexical_cast.hpp>

namespace ttservice::internal {

void reportBadValue() {
    // Hosts look for the text of Boost's conversion error; the conversions themselves neither throw nor use Boost,
    // since every scalar key of the main section is one bad piece of a platform list and a load must not throw a
    // hundred times.
    static const std::string line = std::string("get bson value error, ") + boost::bad_lexical_cast().what() + '\n';
    std::cerr << line << std::flush;
}

}  // namespace ttservice::internal
