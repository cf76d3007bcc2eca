// Overwriting: keeps the program from writing to a file that it reads.
// Entry points: refuseToOverwrite().
// Covered by tests/tools/ttconfig/settings/overwriting_test.cpp.

#include "ttconfig/settings/overwriting.h"

#include <fmt/format.h>

#include <filesystem>
#include <system_error>

#include "ttconfig/invocation/fault.h"

namespace ttconfig {

void refuseToOverwrite(const std::string& option, const std::string& written,
                       const std::vector<std::optional<std::string>>& inputs) {
    for (const auto& input : inputs) {
        std::error_code ignored;
        if (input && std::filesystem::equivalent(written, *input, ignored)) {
            throw Fault(kExitUsage,
                        fmt::format("{} {}: that file is read here; name another one to write to", option, written));
        }
    }
}

}  // namespace ttconfig
