#pragma once

#include <string>

namespace ttservice::internal {

// The last load.
struct LoadState {
    std::string path;
    bool loaded = false;  // not used in any answer
};

}  // namespace ttservice::internal
