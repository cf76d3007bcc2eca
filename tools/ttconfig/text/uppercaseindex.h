#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "ttconfig/text/uppercase.h"

namespace ttconfig {

// Finds the number of a text, ignoring letter case. Suits a million texts: a slot takes four bytes and holds no text,
// and comparisons get the texts from textOf(number).
template <typename TextOf>
class UpperCaseIndex {
public:
    explicit UpperCaseIndex(TextOf textOfNumber) : textOf(std::move(textOfNumber)) {}

    // Makes room for that many texts at once, so that entering them does not grow the index step by step.
    void reserve(std::size_t most) {
        std::size_t size = slots.empty() ? kFewestSlots : slots.size();
        while (most * 3 > size * 2)
            size *= 2;
        if (size > slots.size()) resize(size);
    }

    // The number of the text. 0 means that it has none yet; the caller must then assign one, from 1 up.
    std::uint32_t& operator[](std::string_view text) {
        if (count * 3 >= slots.size() * 2) resize(slots.empty() ? kFewestSlots : slots.size() * 2);
        std::uint32_t& slot = slots[slotOf(text)];
        if (slot == 0) ++count;
        return slot;
    }

    // The number of the text; 0 when it has none. Adds nothing.
    std::uint32_t find(std::string_view text) const { return slots.empty() ? 0 : slots[slotOf(text)]; }

private:
    static constexpr std::size_t kFewestSlots = 64;

    std::size_t slotOf(std::string_view text) const {
        const std::size_t mask = slots.size() - 1;
        std::size_t slot = upperHash(text) & mask;
        while (slots[slot] != 0 && !isSameUpper(textOf(slots[slot]), text))
            slot = (slot + 1) & mask;
        return slot;
    }

    void resize(std::size_t size) {
        std::vector<std::uint32_t> former(size, 0);
        former.swap(slots);
        for (const std::uint32_t number : former) {
            if (number != 0) slots[slotOf(textOf(number))] = number;
        }
    }

    TextOf textOf;
    std::vector<std::uint32_t> slots;  // 0 means free; the size is a power of two, and at most two thirds are used
    std::size_t count = 0;
};

}  // namespace ttconfig
