// Why not: finds the edit of the settings file that would change an answer to the expected one.
// Entry points: whyNot().
// Covered by tests/tools/ttconfig/explaining/whynot_test.cpp.

#include "ttconfig/explaining/whynot.h"

#include <algorithm>
#include <vector>

#include "ttconfig/reasons/explainedcalls.h"

namespace ttconfig {

namespace {

// Each try reads the edited text again. Tries stop after about this many bytes, but a few are always made. For a value
// of a million pieces, the first edits all change pieces, so a few tries are reserved for edits of whole lines.
constexpr std::size_t kMostBytesTried = std::size_t{1} << 29;
constexpr std::size_t kFewestTries = 8;

class Tries {
public:
    explicit Tries(std::size_t textSize)
        : left(std::max(kFewestTries, kMostBytesTried / std::max<std::size_t>(textSize, 1))) {}

    bool take(Edit::Kind kind) {
        std::size_t& some = left > 0 || kind == Edit::Kind::ReplacedLine ? left : linesLeft;
        if (some == 0) return false;
        --some;
        return true;
    }

private:
    std::size_t left;
    std::size_t linesLeft = kFewestTries;
};

bool makesIt(const Explainer& explainer, const std::string& call, const Arguments& arguments, const Wanted& wanted,
             const Edit& edit) {
    const SettingsFacts& facts = explainer.facts();
    const standin::SettingsText text(editedText(facts.text(), edit));
    return wanted.isPlainly(Explainer(text, facts.overrides, facts.settingsPath).explain(call, arguments).answer);
}

std::vector<Edit> draftsFor(const Explainer& explainer, const std::string& call, const Arguments& arguments,
                            const Wanted& wanted) {
    Edits edits(explainer.facts().text());
    const ExplainedCall* row = explainedCalls().find(call);
    if (row != nullptr && row->suggest) row->suggest({explainer.facts(), arguments}, wanted, edits);
    return std::move(edits).inOrder();
}

std::string whyNone(Reason reason) {
    switch (reason) {
        case Reason::Override:
            return "a local override answers, and the settings file is not asked";
        case Reason::Fixed:
            return "the library always answers so, whatever the settings file says";
        case Reason::RunTime:
            return "only the client sets it; no load of a settings file does";
        case Reason::Script:
            return "the market-time script decides; the settings file plays no part";
        case Reason::UnitRule:
            return "a rule about the instrument decides, and none of the settings that it asks leads to that answer by "
                   "itself";
        default:
            return "no change of one line that was tried makes it so";
    }
}

}  // namespace

WhyNot whyNot(const Explainer& explainer, const std::string& call, const Arguments& arguments, const Wanted& wanted) {
    WhyNot found;
    const Explanation now = explainer.explain(call, arguments);
    found.isSoAlready = wanted.matches(now.answer);
    if (found.isSoAlready) return found;
    Tries tries(explainer.facts().text().bytes().size());
    for (const Edit& draft : draftsFor(explainer, call, arguments, wanted)) {
        // Once an edit is found, look only for one that affects this question alone.
        if (found.edit && !draft.reach.empty()) continue;
        if (!tries.take(draft.kind)) continue;
        if (!makesIt(explainer, call, arguments, wanted, draft)) continue;
        (found.edit ? found.narrower : found.edit) = draft;
        if (draft.reach.empty()) break;
    }
    if (!found.edit) found.whyNone = whyNone(now.reason);
    return found;
}

}  // namespace ttconfig
