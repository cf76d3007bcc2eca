#pragma once

#include <algorithm>
#include <vector>

namespace benchmarks {

// Of an odd number of values the one in the middle.
inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace benchmarks
