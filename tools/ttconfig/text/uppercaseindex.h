#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "ttconfig/text/uppercase.h"

namespace ttconfig {

// Finds numbered texts again, letter case aside. There may be a million: it holds four bytes a slot and no text, and
// asks textOf(number) for what it compares.
template <typename TextOf>
class UpperCaseIndex {
public:
    explicit UpperCaseIndex(TextOf textOfNumber) : textOf(std::move(textOfNumber)) {}

    // The number that is held for the text, 0 where there is none: the caller then has to enter one, from 1 on.
    std::uint32_t& operator[](std::string_view text) {
        if (count * 3 >= slots.size() * 2) grow();
        std::uint32_t& slot = slots[slotOf(text)];
        if (slot == 0) ++count;
        return slot;
    }

    // The same without entering any.
    std::uint32_t find(std::string_view text) const { return slots.empty() ? 0 : slots[slotOf(text)]; }

private:
    std::size_t slotOf(std::string_view text) const {
        const std::size_t mask = slots.size() - 1;
        std::size_t slot = upperHash(text) & mask;
        while (slots[slot] != 0 && !isSameUpper(textOf(slots[slot]), text))
            slot = (slot + 1) & mask;
        return slot;
    }

    void grow() {
        std::vector<std::uint32_t> former(slots.empty() ? 64 : slots.size() * 2, 0);
        former.swap(slots);
        for (const std::uint32_t number : former) {
            if (number != 0) slots[slotOf(textOf(number))] = number;
        }
    }

    TextOf textOf;
    std::vector<std::uint32_t> slots;  // free ones are 0; a power of two, two thirds full at most
    std::size_t count = 0;
};

}  // namespace ttconfig
