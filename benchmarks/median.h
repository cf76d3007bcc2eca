#pragma once

#include <algorithm>
#include <vector>

namespace benchmarks {

// The median of an odd number of values.
inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace benchmarks
