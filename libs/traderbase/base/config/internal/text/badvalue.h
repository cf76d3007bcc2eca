#pragma once

#include <cstddef>

namespace ttservice::internal {

// One line on the standard error stream for a piece of a value that is not what it should be. The piece is passed over.
void reportBadValue();

// As many such lines.
void reportBadValues(std::size_t count);

}  // namespace ttservice::internal
