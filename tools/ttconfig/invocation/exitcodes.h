#pragma once

#include <string_view>

#include "ttconfig/invocation/fault.h"

namespace ttconfig {

struct ExitCodeMeaning {
    ExitCode code;
    std::string_view meaning;
};

// The exit codes as the help text and the manual describe them.
inline constexpr ExitCodeMeaning kExitCodes[] = {
    {kExitDone, "done; compared, the same; tested, true"},
    {kExitFindings,
     "something found (check, script check), different (diff), failed (test), false (ask --test), no edit (explain)"},
    {kExitUsage, "the command line is wrong, or names something that there is not"},
    {kExitInput, "a file or a directory cannot be used"},
    {kExitInternal, "anything else"},
};

}  // namespace ttconfig
