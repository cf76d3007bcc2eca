// The version: answers which library is loaded; the build sets the number.
// Entry points: traderbaseVersion().
// Covered by tests/config/exports_test.cpp.

#include "traderbase/base/config/version.h"

namespace ttservice {

const char* traderbaseVersion() {
    return TRADERBASE_VERSION;
}

}  // namespace ttservice
