#pragma once

namespace ttservice::internal {

// A decimal digit of ASCII, whatever the process's locale.
constexpr bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace ttservice::internal
