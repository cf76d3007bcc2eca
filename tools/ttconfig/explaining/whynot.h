#pragma once

#include <optional>
#include <string>

#include "ttconfig/edits/edits.h"
#include "ttconfig/edits/wanted.h"
#include "ttconfig/reasons/explainer.h"

namespace ttconfig {

// How to get the wanted answer.
struct WhyNot {
    bool isSoAlready = false;
    std::optional<Edit> edit;      // the edit that changes the fewest bytes
    std::optional<Edit> narrower;  // the smallest edit that affects this question alone, if `edit` affects others too
    std::string whyNone;           // why there is no edit; empty if there is one, or if none is needed
};

// Looks for an edit of one line of the explainer's settings text that gives the wanted answer. Every edit it returns
// has been tested: applied in memory, read again and explained again.
WhyNot whyNot(const Explainer& explainer, const std::string& call, const Arguments& arguments, const Wanted& wanted);

}  // namespace ttconfig
