#pragma once

#include <string>

#include "ttplatform/export.h"

namespace ttservice {

// Whether the logged-in user holds the right to a product of a module group, such as group "mdl_alg", product
// "mdl_alg_twap". False when no user is logged in. Safe to call from any thread. A host's implementation may throw;
// callers must catch.
TTPLATFORM_API bool testAuth(const std::string& group, const std::string& product);

}  // namespace ttservice
