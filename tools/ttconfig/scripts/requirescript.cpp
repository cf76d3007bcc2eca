// Script files: checks that the named script can be read.
// Entry points: requireScript().
// Covered by tests/tools/ttconfig/scripts/scriptcheck_test.cpp.

#include "ttconfig/scripts/requirescript.h"

#include <standin/filebytes.h>

#include "ttconfig/invocation/fault.h"

namespace ttconfig {

void requireScript(const std::string& path) {
    std::string bytes;
    const standin::FileProblem problem = standin::readFileBytes(path, bytes);
    if (problem == standin::FileProblem::kNone) return;
    throw Fault(kExitInput, "script " + path + ": " + standin::fileProblemText(problem) + "; name a Lua script");
}

}  // namespace ttconfig
