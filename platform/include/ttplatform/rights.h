#pragma once

#include <string>

#include "ttplatform/export.h"

namespace ttservice {

// Whether the logged-in user holds the right to a product of a module group, such as group "mdl_alg", product
// "mdl_alg_twap". False when nobody is logged in. Any thread may ask. A host's own query may throw; callers guard it.
TTPLATFORM_API bool testAuth(const std::string& group, const std::string& product);

}  // namespace ttservice
