#pragma once

#include <optional>
#include <string>

#include "ttconfig/edits/edits.h"
#include "ttconfig/edits/wanted.h"
#include "ttconfig/reasons/explainer.h"

namespace ttconfig {

// How an answer would become another one.
struct WhyNot {
    bool isSoAlready = false;
    std::optional<Edit> edit;      // the one that changes the fewest bytes
    std::optional<Edit> narrower;  // the smallest that is about the question alone, where the other one is not
    std::string whyNone;           // when there is neither: why not
};

// Looks for the edit of one line of the explainer's settings text that makes the answer what is wanted. Every edit that
// is told of was carried out in memory, read again and explained again.
WhyNot whyNot(const Explainer& explainer, const std::string& call, const Arguments& arguments, const Wanted& wanted);

}  // namespace ttconfig
