// The subcommands that ask single questions: session, ask, explain.
// Entry points: addSession(), addAsk(), addExplain().
// Owns: their help texts.
// Covered by tests/tools/ttconfig/commandline/commandline_test.cpp.

#include "ttconfig/commandline/options.h"
#include "ttconfig/commandline/rooms.h"

namespace ttconfig {

namespace {

constexpr const char* kSessionHelp =
    "Answers requests, one JSON object a line, until end of input.\n"
    "A request is {\"call\": NAME, \"args\": [...]}, an answer {\"ok\": VALUE} or {\"error\": TEXT}.\n\n"
    "Example:\n"
    "  echo '{\"call\":\"isNeedMaxAmountPts\",\"args\":[12]}' | ttconfig session --settings settings.ini";

constexpr const char* kAskHelp =
    "A text is given as it stands, a list or an object as JSON. In front of an argument that starts with - and is no\n"
    "number, write --.\n\n"
    "Examples:\n"
    "  ttconfig ask isNeedMaxAmountPts 12 --settings settings.ini\n"
    "  ttconfig ask --test isNeedMaxAmountPts 12 --settings settings.ini && echo capped\n"
    "  ttconfig ask --format json getAllpts --settings settings.ini\n"
    "  ttconfig ask getMaxPermission -- -name-";

constexpr const char* kExplainHelp =
    "Shows the answer, the reason for it, the line of the settings file that decided, and what lost against it, in "
    "the\n"
    "order in which it was considered. The arguments are written as those of ask.\n\n"
    "--why-not takes what ask prints, as text or as JSON; --why-not= is the empty text. Every edit that is shown was\n"
    "carried out in memory and read again; the file stays as it is. The exit code is 1 when no edit of one line makes\n"
    "VALUE the answer, else 0.\n\n"
    "Examples:\n"
    "  ttconfig explain isNeedMaxAmountPts 12 --settings settings.ini\n"
    "  ttconfig explain isNeedMaxAmountPts 13 --why-not true --settings settings.ini\n"
    "  ttconfig explain getAlgoTypes --why-not TWAP,VWAP --settings settings.ini\n"
    "  ttconfig explain needHoldMargin 12 --override needholdmargin=true --settings settings.ini";

// CALL and its arguments. The arguments are registered only for the help text; they are parsed as extra words.
void addQuestion(CLI::App& app, CommandLine& line) {
    addWord(app, "CALL", line, "", "What is asked: the name of an operation");
    app.add_option_function<std::string>(
           "ARG...", [](const std::string&) {}, "The arguments of the operation")
        ->expected(0, 1);
    app.allow_extras();
}

// Empty for KEY=true and KEY=false, otherwise what is wrong.
std::string whyNoOverride(const std::string& given) {
    const std::size_t mark = given.rfind('=');
    const std::string value = mark == std::string::npos ? "" : given.substr(mark + 1);
    const bool fits = mark != 0 && (value == "true" || value == "false");
    return fits ? std::string() : given + " is neither KEY=true nor KEY=false";
}

// When a key is given twice, the later value wins, as it does in the client.
void takeOverrides(const std::vector<std::string>& all, CommandLine& line) {
    for (const std::string& given : all) {
        const std::size_t mark = given.rfind('=');
        line.overrides[given.substr(0, mark)] = given.substr(mark + 1) == "true";
    }
}

}  // namespace

void addSession(CLI::App& app, CommandLine& line) {
    app.footer(kSessionHelp);
    addShared(app, line);
}

void addAsk(CLI::App& app, CommandLine& line) {
    app.footer(kAskHelp);
    addShared(app, line);
    addFormat(app, line, {"text", "json"});
    app.add_flag("--test", line.expectTrue, "End with exit code 0 when the answer is true and 1 when it is false");
    addQuestion(app, line);
}

void addExplain(CLI::App& app, CommandLine& line) {
    app.footer(kExplainHelp);
    addDirectory(app, line.shared.directories);
    addSettings(app, line).required();
    addPlatformData(app, line);
    const auto take = [&line](const std::vector<std::string>& all) { takeOverrides(all, line); };
    app.add_option_function<std::vector<std::string>>("--override", take, "What the user has decided about a switch")
        ->type_name("KEY=true|false")
        ->allow_extra_args(false)
        ->check(whyNoOverride);
    addText(app, "--why-not", line.whyNot, "VALUE", "Show the smallest edit that makes this the answer");
    addFormat(app, line, {"text", "json"});
    addQuestion(app, line);
}

}  // namespace ttconfig
