#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

namespace fuzz {

// Whether two numbers are the same; NaN equals NaN, and 0 does not equal -0.
inline bool isSame(double left, double right) {
    if (std::isnan(left) || std::isnan(right)) return std::isnan(left) && std::isnan(right);
    return left == right && std::signbit(left) == std::signbit(right);
}

inline bool isSame(const std::vector<double>& left, const std::vector<double>& right) {
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (!isSame(left[i], right[i])) return false;
    }
    return true;
}

}  // namespace fuzz
