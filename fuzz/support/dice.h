#pragma once

#include <cstddef>
#include <random>
#include <string_view>

namespace fuzz {

// Pseudo-random choices derived from the input: the same bytes give the same choices.
class Dice {
public:
    explicit Dice(std::string_view input) {
        std::seed_seq seed(input.begin(), input.end());
        random.seed(seed);
    }

    std::size_t below(std::size_t limit) { return random() % limit; }
    bool oneIn(std::size_t count) { return below(count) == 0; }

    template <typename List>
    const auto& any(const List& list) {
        return list[below(std::size(list))];
    }

private:
    std::mt19937 random;
};

}  // namespace fuzz
