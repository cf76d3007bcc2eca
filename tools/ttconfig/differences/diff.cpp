// The diff subcommand: shows which answers differ between two settings files.
// Entry points: runDiff().
// Covered by tests/tools/ttconfig/expectations/answers_test.cpp.

#include "ttconfig/differences/diff.h"

#include "ttconfig/differences/differences.h"
#include "ttconfig/invocation/colouring.h"
#include "ttconfig/invocation/fault.h"
#include "ttconfig/settings/settingsfile.h"
#include "ttconfig/settings/startup.h"
#include "ttconfig/text/answertext.h"
#include "ttconfig/text/colour.h"
#include "ttconfig/text/progress.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

constexpr std::size_t kWrittenAtOnce = std::size_t{64} * 1024;

// Writes changes as they are found, so that memory does not grow with their number.
class ChangeWriter {
public:
    ChangeWriter(const CommandLine& commandLine, Output& writtenTo, Progress& shownProgress)
        : json(commandLine.format == Format::Json),
          limited(commandLine.platforms.has_value()),
          colours(coloursFor(commandLine, writtenTo)),
          oldFile(commandLine.words.at(0)),
          newFile(commandLine.words.at(1)),
          output(writtenTo),
          progress(shownProgress) {}

    void begin() {
        if (json) text = "{\"old\":" + answerJson(oldFile) + ",\"new\":" + answerJson(newFile) + ",\"changes\":[";
    }

    void write(const Change& change) {
        if (json) {
            text += (any ? ",\n" : "\n") + answerJson(changeJson(change));
        } else {
            text += lineOf(change) + '\n';
        }
        any = true;
        progress.at(0, change.subject);
        if (text.size() >= kWrittenAtOnce) flush();
    }

    // Returns whether there was a change.
    bool end() {
        if (json) text += std::string(any ? "\n" : "") + "],\"same\":" + (any ? "false" : "true") + "}\n";
        if (!json && !any) text = limited ? "no difference in what is asked with these platforms\n" : "no difference\n";
        flush();
        return any;
    }

private:
    void flush() {
        progress.hide();
        output.write(text);
        text.clear();
    }

    // changeText(), in colour.
    std::string lineOf(const Change& change) const {
        return colours(Tint::Heading, onOneLine(change.subject)) + ": " + onOneLine(change.question) + ' ' +
               colours(Tint::Bad, onOneLine(shownBefore(change))) + " → " +
               colours(Tint::Good, onOneLine(shownAfter(change))) + colours(Tint::Dim, placesText(change));
    }

    const bool json;
    const bool limited;  // to questions about platforms
    const Colours colours;
    const std::string oldFile;
    const std::string newFile;
    Output& output;
    Progress& progress;
    std::string text;
    bool any = false;
};

standin::SettingsText loaded(const std::string& path) {
    requireUsableSettings(path);
    standin::SettingsText text;
    const standin::FileProblem problem = standin::SettingsText::load(path, text);
    if (problem != standin::FileProblem::kNone) {
        throw Fault(kExitInput, path + ": " + standin::fileProblemText(problem));
    }
    return text;
}

}  // namespace

int runDiff(const CommandLine& commandLine, Output& output) {
    carryOut(commandLine.shared);
    const auto platform = commandLine.shared.platform ? standin::PlatformData::current() : nullptr;
    Progress progress("comparing");
    const standin::SettingsText oldText = loaded(commandLine.words.at(0));
    progress.atLongStep(0, commandLine.words.at(1));
    const standin::SettingsText newText = loaded(commandLine.words.at(1));
    progress.atLongStep(0);
    ChangeWriter writer(commandLine, output, progress);
    writer.begin();
    tellDifferences(oldText, newText, commandLine.platforms.value_or(std::vector<int>()), platform.get(),
                    [&writer](const Change& change) { writer.write(change); });
    return writer.end() ? kExitFindings : kExitDone;
}

}  // namespace ttconfig
