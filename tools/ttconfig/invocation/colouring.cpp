// Colouring: decides whether answers are coloured.
// Entry points: coloursFor().
// Covered by tests/tools/ttconfig/text/colour_test.cpp.

#include "ttconfig/invocation/colouring.h"

#include <cstdlib>

namespace ttconfig {

namespace {

bool isTextIn(const char* variable, std::string_view text) {
    const char* value = std::getenv(variable);
    return value != nullptr && value == text;
}

bool environmentRefuses() {
    const char* refusal = std::getenv("NO_COLOR");
    return (refusal != nullptr && *refusal != '\0') || isTextIn("TERM", "dumb");
}

}  // namespace

Colours coloursFor(const CommandLine& commandLine, const Output& output) {
    switch (commandLine.colouring) {
        case Colouring::Always:
            return Colours(true);
        case Colouring::Never:
            return Colours(false);
        case Colouring::Auto:
            break;
    }
    return Colours(output.isTerminal() && !environmentRefuses());
}

}  // namespace ttconfig
