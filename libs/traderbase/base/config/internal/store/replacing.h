#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

// How a reader keeps a table intact even if it fails part-way: it first builds the new entries separately, where
// running out of memory does no harm, and then moves them into the table by steps that allocate nothing.

namespace ttservice::internal {

// Moves the entries of "fresh" into the table, replacing entries with the same keys; all others stay. "fresh" is left
// with what was replaced. Entries keep their addresses.
template <typename Table, typename Fresh>
void replaceEntries(Table& table, Fresh& fresh) {
    for (auto& [key, value] : fresh) {
        const auto found = table.find(key);
        if (found != table.end()) std::swap(found->second, value);
    }
    table.merge(fresh);
}

// Makes room for this many more elements, with the same growth as repeated push_back().
template <typename Element>
void makeRoomFor(std::size_t more, std::vector<Element>& list) {
    const std::size_t wanted = list.size() + more;
    if (wanted > list.capacity()) list.reserve(std::max(wanted, 2 * list.capacity()));
}

}  // namespace ttservice::internal
