#pragma once

namespace ttservice::internal {

// One line on the standard error stream for a piece of a value that is not what it should be. The piece is passed over.
void reportBadValue();

}  // namespace ttservice::internal
