// Letter case.
// Entry points: utils::toUpper().
// Test: tests/platform/text_test.cpp
#include "ttplatform/text.h"

namespace utils {

std::string toUpper(std::string text) {
    for (char& character : text) {
        if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 'a' + 'A');
    }
    return text;
}

}  // namespace utils
