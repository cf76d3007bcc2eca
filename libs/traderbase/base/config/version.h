#pragma once

#include "luaconfig/export.h"

namespace ttservice {

// The version of the loaded library, "MAJOR.MINOR.PATCH"; never empty. Use it in reports, or compare it with the
// version that a client was built for. Any thread may call it; locks nothing.
TRADERBASE_API const char* traderbaseVersion();

}  // namespace ttservice
