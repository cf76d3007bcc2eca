#pragma once

#include <string>
#include <vector>

#include "ttconfig/edits/wanted.h"
#include "ttconfig/text/answertext.h"

namespace tests {

// An answer in all the ways in which the tool prints it.
inline std::vector<std::string> writings(const ttconfig::Answer& answer) {
    return {ttconfig::answerText(answer), ttconfig::answerJson(answer),
            ttconfig::answerJson(ttconfig::withoutRecordNumbers(answer))};
}

}  // namespace tests
