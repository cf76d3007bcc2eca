#pragma once

namespace ttservice::internal {

// Whether the character is an ASCII decimal digit, whatever the process's locale.
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace ttservice::internal
