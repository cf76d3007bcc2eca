#pragma once

#include "luaconfig/export.h"

namespace ttservice {

// The version of the library that is loaded, "MAJOR.MINOR.PATCH"; never empty. For reports and for comparing with what
// a client was built for. From any thread, locks nothing.
TRADERBASE_API const char* traderbaseVersion();

}  // namespace ttservice
