// The version: answers which library is loaded.
// Entry points: traderbaseVersion().
// Owns: nothing; the build says the number.
// Covered by tests/config/exports_test.cpp.

#include "traderbase/base/config/version.h"

namespace ttservice {

const char* traderbaseVersion() {
    return TRADERBASE_VERSION;
}

}  // namespace ttservice
