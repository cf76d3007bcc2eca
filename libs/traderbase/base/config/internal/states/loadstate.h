#pragma once

#include <string>

namespace ttservice::internal {

// The last load.
struct LoadState {
    std::string path;
    bool loaded = false;  // consulted by nothing
};

}  // namespace ttservice::internal
