#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ttconfig {

// Throws Fault (kExitUsage, "OPTION FILE: that file is read here; ...") when the file to write to is one of the inputs,
// by whatever name or link. Inputs that were not given or are not there count for nothing. To be called after -C was
// carried out and before the file is opened.
void refuseToOverwrite(const std::string& option, const std::string& written,
                       const std::vector<std::optional<std::string>>& inputs);

}  // namespace ttconfig
