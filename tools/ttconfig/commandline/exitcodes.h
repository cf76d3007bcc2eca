#pragma once

#include <string_view>

#include "ttconfig/fault.h"

namespace ttconfig {

struct ExitCodeMeaning {
    ExitCode code;
    std::string_view meaning;
};

// How the program ends, as help text and manual tell it.
inline constexpr ExitCodeMeaning kExitCodes[] = {
    {kExitDone, "done; compared, the same; tested, true"},
    {kExitFindings, "something was found (check, script check), differs (diff), fails (test) or is false (ask --test)"},
    {kExitUsage, "the command line is wrong, or names something that there is not"},
    {kExitInput, "a file or a directory cannot be used"},
    {kExitInternal, "anything else"},
};

}  // namespace ttconfig
