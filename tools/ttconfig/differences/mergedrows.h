#pragma once

#include <algorithm>
#include <vector>

namespace ttconfig {

// Sorts the rows. Of equal rows, only the one entered first stays.
template <typename Row, typename Less>
void keepFirstOfEqual(std::vector<Row>& rows, Less less) {
    std::stable_sort(rows.begin(), rows.end(), less);
    const auto end = std::unique(rows.begin(), rows.end(),
                                 [&less](const Row& left, const Row& right) { return !less(left, right); });
    rows.erase(end, rows.end());
}

// Walks two sorted tables together: sink(row, old row, new row). The old or new row is null when its table has none;
// the first argument is one of them that is not null.
template <typename Rows, typename Less, typename Sink>
void mergeRows(const Rows& before, const Rows& after, Less less, Sink&& sink) {
    auto left = before.begin();
    auto right = after.begin();
    while (left != before.end() || right != after.end()) {
        const bool noRight = right == after.end() || (left != before.end() && less(*left, *right));
        const bool noLeft = left == before.end() || (!noRight && less(*right, *left));
        sink(noLeft ? *right : *left, noLeft ? nullptr : &*left, noRight ? nullptr : &*right);
        if (!noLeft) ++left;
        if (!noRight) ++right;
    }
}

// The same for two maps: sink(key, old value, new value).
template <typename Map, typename Sink>
void mergeByKey(const Map& before, const Map& after, Sink&& sink) {
    using Item = typename Map::value_type;
    const auto less = [&before](const Item& left, const Item& right) {
        return before.key_comp()(left.first, right.first);
    };
    mergeRows(before, after, less, [&sink](const Item& one, const Item* left, const Item* right) {
        sink(one.first, left == nullptr ? nullptr : &left->second, right == nullptr ? nullptr : &right->second);
    });
}

}  // namespace ttconfig
