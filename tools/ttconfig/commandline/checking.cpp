// The subcommands that judge files: check, diff, test, report, script check.
// Entry points: addCheck(), addDiff(), addTest(), addReport(), addScriptCheck().
// Owns: their help texts.
// Covered by tests/tools/ttconfig/commandline/commandline_test.cpp.

#include "traderbase/base/config/internal/text/splitting.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"
#include "ttconfig/commandline/options.h"
#include "ttconfig/commandline/rooms.h"

namespace ttconfig {

namespace {

constexpr const char* kCheckHelp =
    "Prints a line FILE:LINE:COLUMN: SEVERITY: MESSAGE [RULE] for everything in which a settings file says something\n"
    "else than its author will have meant. Exit code 0: nothing found; 1: something found; 3: a file cannot be read;\n"
    "the others are checked all the same.\n\n"
    "Examples:\n"
    "  ttconfig check settings.ini\n"
    "  ttconfig check --disable unknown-key,unusual-unit --format sarif settings.ini desks/*.ini\n"
    "  ttconfig check --explain unknown-key";

constexpr const char* kDiffHelp =
    "Compares what the two files make the library answer, not how they are written. Exit code 0: the same; 1: not the\n"
    "same; 3: a file cannot be read.\n\n"
    "A code whose own limit comes or goes is told as going \"by category\"; with --platform the category is known of "
    "the\n"
    "instruments that the platform data know, so that its limit is told, or nothing when it is the same. The order of "
    "a\n"
    "list of platforms and rows that no question reaches are no difference.\n\n"
    "Examples:\n"
    "  ttconfig diff settings.ini.old settings.ini\n"
    "  ttconfig diff --platform platform.json settings.ini.old settings.ini\n"
    "  ttconfig diff --platforms 12,47 settings.ini.old settings.ini";

constexpr const char* kTestHelp =
    "A line of the expectations is a question, \"=\" and its answer; a line that starts with # is a comment.\n"
    "Exit code 0: all as expected; 1: something else; 2: a line cannot be understood; 3: a file cannot be read.\n\n"
    "Example:\n"
    "  echo 'isNeedMaxAmountPts 12 = true' > desk.expect\n"
    "  ttconfig test desk.expect --settings settings.ini";

constexpr const char* kReportHelp =
    "Writes one page that needs nothing else: the platforms and their switches, values, limits, rates, trading "
    "sessions\n"
    "and the findings of check; with --against also what changed.\n\n"
    "Example:\n"
    "  ttconfig report --settings settings.ini --against settings.ini.old -o report.html";

constexpr const char* kScriptCheckHelp =
    "Prints a line FILE:LINE: WHERE: MESSAGE for everything that the client would pass over, log or take for\n"
    "something else. Exit code 0: nothing found; 1: something found; 3: the file cannot be read.\n\n"
    "Example:\n"
    "  ttconfig script check --timeout 2 samples/luaScripts/MarketTime.lua";

std::string whyNoNumbers(const std::string& given) {
    std::string trouble;
    ttservice::internal::splitKeepEmpty(given, ',', [&trouble](std::string_view piece) {
        if (trouble.empty()) trouble = whyNoNumber(std::string(piece));
    });
    return trouble;
}

std::vector<int> numbersIn(const std::string& given) {
    std::vector<int> numbers;
    ttservice::internal::splitKeepEmpty(given, ',', [&numbers](std::string_view piece) {
        if (const auto number = ttservice::internal::strictInt(piece)) numbers.push_back(*number);
    });
    return numbers;
}

}  // namespace

void addCheck(CLI::App& app, CommandLine& line) {
    app.footer(kCheckHelp);
    addDirectory(app, line.shared.directories);
    addPlatformData(app, line);
    addFormat(app, line, {"text", "json", "sarif", "markdown"},
              "How findings are written; markdown is for --explain alone");
    addTexts(app, "--disable", line.disabledRules, "RULE,...", "Leave out what these rules find").delimiter(',');
    addTexts(app, "--fatal", line.fatalRules, "RULE,...", "Make what these rules find errors").delimiter(',');
    addText(app, "--explain", line.explainedRule, "RULE",
            "Tell what this rule is about, or all of them, and check nothing");
    app.add_option("FILE", line.words, "The settings files to check")->type_name("FILE");
    app.parse_complete_callback([&line] {
        if (line.words.empty() == line.explainedRule.has_value()) return;
        if (line.words.empty()) throw CLI::RequiredError("FILE");
        throw CLI::ExcludesError("--explain", "FILE");
    });
}

void addDiff(CLI::App& app, CommandLine& line) {
    app.footer(kDiffHelp);
    addDirectory(app, line.shared.directories);
    addPlatformData(app, line);
    addFormat(app, line, {"text", "json"});
    const auto take = [&line](const std::string& given) { line.platforms = numbersIn(given); };
    app.add_option_function<std::string>("--platforms", take, "Compare what is asked with a platform, for these")
        ->type_name("ID,...")
        ->check(whyNoNumbers);
    addWord(app, "OLD", line, "FILE", "The settings as they were");
    addWord(app, "NEW", line, "FILE", "The settings as they are");
}

void addTest(CLI::App& app, CommandLine& line) {
    app.footer(kTestHelp);
    addDirectory(app, line.shared.directories);
    addSettings(app, line).required();
    addPlatformData(app, line);
    addWord(app, "EXPECTATIONS", line, "FILE", "The questions and the answers they should have");
}

void addReport(CLI::App& app, CommandLine& line) {
    app.footer(kReportHelp);
    addDirectory(app, line.shared.directories);
    addSettings(app, line).required();
    addPlatformData(app, line);
    addText(app, "--against", line.against, "FILE", "Show what changed since this settings file");
    addText(app, "-o,--output", line.outputFile, "FILE", "The page to write; - writes it to the standard output")
        .required();
}

void addScriptCheck(CLI::App& app, CommandLine& line) {
    app.footer(kScriptCheckHelp);
    addDirectory(app, line.shared.directories);
    addFormat(app, line, {"text", "json"});
    app.add_option("--timeout", line.timeoutSeconds, "Seconds after which a script is ended that does not return")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.01, 86400.0));
    addWord(app, "FILE", line, "FILE", "The script");
}

}  // namespace ttconfig
