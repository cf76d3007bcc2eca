#pragma once

#include <string>

namespace ttconfig {

// Throws Fault for a settings file that cannot be meant: missing, no regular file, unreadable, empty, larger than
// 256 MiB, or binary. The library itself takes any of these for an empty file and says nothing.
void requireUsableSettings(const std::string& path);

}  // namespace ttconfig
