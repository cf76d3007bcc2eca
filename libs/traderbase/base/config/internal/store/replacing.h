#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

// How a reader leaves a table whole whatever happens while it reads: the new entries are made aside, where running out
// of memory does no harm, and then go into the table by steps that allocate nothing.

namespace ttservice::internal {

// Puts the entries of one map into another, in place of those with the same keys; all others stay. What they replaced
// is left in "fresh". Entries keep their addresses.
template <typename Table, typename Fresh>
void replaceEntries(Table& table, Fresh& fresh) {
    for (auto& [key, value] : fresh) {
        const auto found = table.find(key);
        if (found != table.end()) std::swap(found->second, value);
    }
    table.merge(fresh);
}

// Makes room for so many more elements, growing as a list that is added to one by one would.
template <typename Element>
void makeRoomFor(std::size_t more, std::vector<Element>& list) {
    const std::size_t wanted = list.size() + more;
    if (wanted > list.capacity()) list.reserve(std::max(wanted, 2 * list.capacity()));
}

}  // namespace ttservice::internal
