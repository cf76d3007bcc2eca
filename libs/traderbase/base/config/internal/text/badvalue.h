#pragma once

#include <cstddef>

namespace ttservice::internal {

// Writes one line to the standard error stream for a malformed piece of a value, which is skipped.
void reportBadValue();

// Writes that many such lines.
void reportBadValues(std::size_t count);

}  // namespace ttservice::internal
