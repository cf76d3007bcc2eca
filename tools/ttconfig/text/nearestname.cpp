// Nearest names: finds the known name that a misspelt one comes closest to.
// Entry points: nearestName(), didYouMean().
// Covered by tests/tools/ttconfig/text/text_test.cpp.

#include "ttconfig/text/nearestname.h"

#include <algorithm>
#include <numeric>

namespace ttconfig {

namespace {

// Longer than any known name: nothing can be near, and comparing would take long.
constexpr std::size_t kLongestMisspelling = 200;

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// The number of letters that must be added, left out, replaced or swapped with a neighbour.
std::size_t distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> beforeLast(to.size() + 1);
    std::vector<std::size_t> last(to.size() + 1);
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(last.begin(), last.end(), std::size_t{0});
    for (std::size_t i = 1; i <= from.size(); ++i) {
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const bool same = lowered(from[i - 1]) == lowered(to[j - 1]);
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (same ? 0U : 1U)});
            const bool swapped = i > 1 && j > 1 && lowered(from[i - 1]) == lowered(to[j - 2]) &&
                                 lowered(from[i - 2]) == lowered(to[j - 1]);
            if (swapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
        }
        beforeLast.swap(last);
        last.swap(row);
    }
    return last[to.size()];
}

}  // namespace

std::string_view nearestName(std::string_view misspelt, const std::vector<std::string_view>& names) {
    // A third of the letters may be wrong; beyond that a suggestion would only confuse.
    return nearestName(misspelt, names, misspelt.size() / 3 + 1);
}

std::string_view nearestName(std::string_view misspelt, const std::vector<std::string_view>& names,
                             std::size_t mostSlips) {
    if (misspelt.size() > kLongestMisspelling) return {};
    std::size_t best = mostSlips + 1;
    std::string_view nearest;
    for (const std::string_view name : names) {
        // Every letter of difference in length is a slip of its own.
        if (std::max(name.size(), misspelt.size()) - std::min(name.size(), misspelt.size()) >= best) continue;
        const std::size_t found = distance(misspelt, name);
        if (found < best) {
            best = found;
            nearest = name;
        }
    }
    return nearest;
}

std::string didYouMean(std::string_view misspelt, const std::vector<std::string_view>& names) {
    const std::string_view nearest = nearestName(misspelt, names);
    return nearest.empty() ? std::string() : "; did you mean " + std::string(nearest) + "?";
}

}  // namespace ttconfig
