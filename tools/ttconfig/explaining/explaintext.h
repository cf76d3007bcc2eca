#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ttconfig/explaining/whynot.h"
#include "ttconfig/reasons/explainer.h"
#include "ttconfig/text/colour.h"

namespace ttconfig {

// Everything that is shown about one question.
struct ShownExplanation {
    const standin::SettingsText& text;
    std::string file;                // the settings file, as given
    std::string call;                // the operation
    std::vector<std::string> words;  // its arguments, as given
    Explanation explanation;
    std::optional<std::string> wanted;  // the expected answer
    std::optional<WhyNot> whyNot;
};

// As text: the answer, the reason, the line that decided, the losing candidates, and the edit.
std::string explanationText(const ShownExplanation& shown, const Colours& colours);

// As one JSON object, with the same contents.
Answer explanationJson(const ShownExplanation& shown);

}  // namespace ttconfig
