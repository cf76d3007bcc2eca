// Nesting: tells whether a JSON text is nested too deeply to parse.
// Entry points: isNestedTooDeep().
// Covered by tests/tools/ttconfig/text/text_test.cpp.

#include "ttconfig/text/nesting.h"

namespace ttconfig {

bool isNestedTooDeep(std::string_view text) {
    int depth = 0;
    bool inText = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inText) {
            if (c == '\\') ++i;
            if (c == '"') inText = false;
        } else if (c == '"') {
            inText = true;
        } else if (c == '[' || c == '{') {
            if (++depth > kDeepestNesting) return true;
        } else if (c == ']' || c == '}') {
            --depth;
        }
    }
    return false;
}

}  // namespace ttconfig
