// `ttconfig explain` on arbitrary settings. For every question that can be explained: the explanation's answer is the
// store's; text and JSON show the same answer and the same places; and a proposed edit gives the wanted answer in a
// store that loads the edited text. Together, the seeds answer every such question from a file.

#include "ttconfig/explaining/explain.h"

#include <standin/platformdatafile.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "fuzz/explain/explainquestions.h"
#include "fuzz/explain/toldexplanation.h"
#include "fuzz/support/capturedoutput.h"
#include "fuzz/support/dice.h"
#include "fuzz/support/scratchfolder.h"
#include "fuzz/support/shownbytes.h"
#include "fuzz/support/target.h"
#include "tests/support/slowlines.h"
#include "traderbase/base/config/configcollector.h"
#include "traderbase/base/config/internal/store/storeslot.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "ttconfig/explaining/whynot.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/reasons/explainer.h"
#include "ttconfig/text/answertext.h"

namespace {

using fuzz::Dice;
using fuzz::ExplainQuestion;
using fuzz::require;
using ttconfig::Answer;
using ttconfig::Explainer;
using ttconfig::Explanation;
using ttconfig::Reason;
using ttservice::internal::StoreSlot;
using Overrides = std::map<std::string, bool>;

// How many questions per input are also asked with --why-not, besides those written in the input.
constexpr std::size_t kWhyNots = 2;

// The lines as an editor shows them, without a byte order mark.
std::vector<std::string> seenLines(std::string_view input) {
    if (input.substr(0, 3) == "\xEF\xBB\xBF") input.remove_prefix(3);
    return tests::slowLines(std::string(input));
}

// A settings file: its path, its lines and its parsed text.
struct Settings {
    const std::string path;
    const standin::SettingsText text;
    const std::vector<std::string> lines;
    Overrides overrides;
    const fuzz::ScratchFolder& folder;

    // Replaces the process's store by a new one that has loaded these bytes.
    void load(std::string_view bytes) const {
        loadNothing();
        folder.writeAnew("bin/" + path, bytes);
        StoreSlot::current()->setUseLocalConfig(overrides);
        StoreSlot::current()->readConfig(path);
    }
    static void loadNothing() { StoreSlot::exchange(StoreSlot::build()); }
};

// The reasons seen so far for each operation's answers.
std::map<std::string, std::set<Reason>>& reasonsSeen() {
    static std::map<std::string, std::set<Reason>> seen;
    return seen;
}

// The store's answer to the first request of a session.
Answer asked(const ExplainQuestion& question) {
    ttconfig::CallState state;
    return ttconfig::callTable().answer(state, question.call, question.arguments);
}

Explanation checkedExplanation(const Explainer& explainer, const ExplainQuestion& question, const Answer& answer,
                               const Settings& settings) {
    Explanation explanation = explainer.explain(question.call, question.arguments);
    require(ttconfig::answerJson(explanation.answer) == ttconfig::answerJson(answer),
            "an explanation has the store's answer",
            question.shown() + " " + ttconfig::answerJson(explanation.answer) + " " + ttconfig::answerJson(answer));
    require(!explanation.rule.empty(), "an explanation names its rule", question.shown());
    fuzz::checkPlaces(explanation, settings.lines);
    reasonsSeen()[question.call].insert(explanation.reason);
    return explanation;
}

// --- edits

// Both edits give the wanted answer, applied by the tool's code or by hand from what the output says.
void checkEdits(const ExplainQuestion& question, const ttconfig::WhyNot& whyNot, const std::string& json,
                const Settings& settings) {
    const ttconfig::Wanted wanted(*question.wanted);
    const auto leadsThere = [&](const std::string& bytes, const char* rule) {
        settings.load(bytes);
        require(wanted.matches(asked(question)), rule, question.shown() + "\n" + bytes);
    };
    for (const auto& edit : {whyNot.edit, whyNot.narrower}) {
        if (!edit) continue;
        require(edit->line >= 1 && edit->line <= settings.lines.size() + 1, "an edit is in the file", question.shown());
        leadsThere(editedText(settings.text, *edit), "an edit makes the answer what was wanted");
    }
    const std::vector<std::string> words = question.words();
    if (!fuzz::isUtf8(*question.wanted) || !std::all_of(words.begin(), words.end(), fuzz::isUtf8)) return;
    for (const std::string& bytes : fuzz::editedByHand(json, settings.lines))
        leadsThere(bytes, "an edit as it is told makes the answer what was wanted");
}

// --- the command

ttconfig::CommandLine commandFor(const ttconfig::ShownExplanation& shown, const Settings& settings) {
    ttconfig::CommandLine command;
    command.words = {shown.call};
    command.words.insert(command.words.end(), shown.words.begin(), shown.words.end());
    command.shared.settings = settings.path;
    command.overrides = settings.overrides;
    command.whyNot = shown.wanted;
    return command;
}

// The command prints exactly the expected explanation in either format, or rejects invalid arguments.
void checkCommand(const ttconfig::ShownExplanation& shown, const fuzz::ToldExplanation& printed, bool isJson,
                  const Settings& settings) {
    ttconfig::CommandLine command = commandFor(shown, settings);
    command.colouring = ttconfig::Colouring::Never;
    command.format = isJson ? ttconfig::Format::Json : ttconfig::Format::Text;
    const std::string_view bytes = settings.text.bytes();
    settings.load(bytes);
    Settings::loadNothing();
    int exitCode = -1;
    const std::string written = fuzz::outputOf([&](ttconfig::Output& output) {
        try {
            exitCode = ttconfig::runExplain(command, output);
        } catch (const ttconfig::Fault& fault) {
            const bool isUsable = !bytes.empty() && bytes.find('\0') == std::string_view::npos;
            const bool isOtherKind = shown.wanted && !shown.explanation.answer.is_structured();
            require(fault.exitCode == ttconfig::kExitInput ? !isUsable
                                                           : fault.exitCode == ttconfig::kExitUsage && isOtherKind,
                    "what can be explained is explained", fault.what());
        }
    });
    if (exitCode < 0) return require(written.empty(), "what is refused writes nothing", written);
    require(written == (isJson ? printed.json + "\n" : printed.text), "the command writes the explanation", written);
    const bool isImpossible = shown.whyNot && !shown.whyNot->isSoAlready && !shown.whyNot->edit;
    require(exitCode == (isImpossible ? ttconfig::kExitFindings : ttconfig::kExitDone), "the exit code tells it");
}

// --- one input

class ExplainedInput {
public:
    ExplainedInput(Settings& settingsFile, Dice& inputDice)
        : settings(settingsFile),
          dice(inputDice),
          maker(settings.text, dice),
          explainer(settings.text, settings.overrides, settings.path) {}

    void ask(const std::vector<ExplainQuestion>& written) {
        std::vector<ExplainQuestion> questions = maker.forEveryCall();
        const std::size_t ofEveryCall = questions.size();
        questions.insert(questions.end(), written.begin(), written.end());
        settings.load(settings.text.bytes());
        for (const ExplainQuestion& question : questions) {
            answers.push_back(asked(question));
            explanations.push_back(checkedExplanation(explainer, question, answers.back(), settings));
        }
        // Writing one explanation costs as much as many answers, so check only every eighth.
        for (std::size_t i = dice.below(8); i < questions.size(); i += 8)
            tell(i, questions[i]);
        for (std::size_t i = 0; i < kWhyNots; ++i)
            tellWhyNot(dice.below(ofEveryCall), questions);
        for (std::size_t i = ofEveryCall; i < questions.size(); ++i)
            tellWhyNot(i, questions);
    }

private:
    ttconfig::ShownExplanation shownOf(std::size_t number, const ExplainQuestion& question) const {
        return {settings.text, settings.path, question.call, question.words(), explanations[number], {}, {}};
    }

    void tell(std::size_t number, const ExplainQuestion& question) const {
        fuzz::checkedTelling(shownOf(number, question), answers[number], settings.lines);
    }

    void tellWhyNot(std::size_t number, const std::vector<ExplainQuestion>& questions) {
        ExplainQuestion question = questions[number];
        if (!question.wanted) question.wanted = maker.wantedBeside(answers[number]);
        ttconfig::ShownExplanation shown = shownOf(number, question);
        const ttconfig::Wanted wanted(*question.wanted);
        const ttconfig::WhyNot found = ttconfig::whyNot(explainer, question.call, question.arguments, wanted);
        require(found.isSoAlready == wanted.matches(answers[number]), "what is so already is told", question.shown());
        require(found.isSoAlready + found.edit.has_value() + !found.whyNone.empty() == 1,
                "it is so, there is an edit, or it is told why there is none", question.shown());
        shown.wanted = question.wanted;
        shown.whyNot = found;
        const fuzz::ToldExplanation printed = fuzz::checkedTelling(shown, answers[number], settings.lines);
        if (found.edit) checkEdits(question, found, printed.json, settings);
        if (dice.oneIn(4)) checkCommand(shown, printed, dice.oneIn(2), settings);
    }

    Settings& settings;
    Dice& dice;
    fuzz::QuestionMaker maker;
    const Explainer explainer;
    std::vector<Answer> answers;
    std::vector<Explanation> explanations;
};

}  // namespace

void fuzz::runInput(std::string_view input) {
    static const ScratchFolder folder;
    static const bool hasPlatform = [] {
        std::string error;
        return standin::installPlatformFile(TT_SOURCE_DIR "/samples/platform.json", error);
    }();
    require(hasPlatform, "the sample platform loads");
    const SilentErrors silent;

    Dice dice(input);
    const WrittenQuestions written = writtenQuestions(input);
    Settings settings{written.file, standin::SettingsText{std::string(input)}, seenLines(input), written.overrides,
                      folder};
    if (dice.oneIn(4)) {
        const auto& row = dice.any(ttservice::internal::kPlatformSwitches);
        settings.overrides[std::string(row.key)] = dice.oneIn(2);
    }
    ExplainedInput(settings, dice).ask(written.questions);
    folder.remove("bin/" + settings.path);
}

// A new operation needs a seed, or a line in one, whose settings answer it.
bool fuzz::seedsSuffice() {
    bool isEnough = true;
    for (const auto& row : ttconfig::callTable().rows()) {
        const std::string& name = row.first;
        if (!Explainer::explains(name)) continue;
        const std::set<Reason>& reasons = reasonsSeen()[name];
        const bool isSaid = std::any_of(reasons.begin(), reasons.end(), [](Reason reason) {
            return reason != Reason::BuiltInDefault && reason != Reason::KeyAbsent;
        });
        if (isSaid) continue;
        std::fprintf(stderr, "no seed of explain has an answer of %s that a file decides\n", name.c_str());
        isEnough = false;
    }
    return isEnough;
}

TT_FUZZ_TARGET
