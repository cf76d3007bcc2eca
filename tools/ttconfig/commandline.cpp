// The command line: answers what the program was asked to do.
// Doors: readCommandLine().
// Owns: the help texts.
// Covered by tests/tools/ttconfig/commandline_test.cpp.

#include "ttconfig/commandline.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <map>

#include "traderbase/base/config/internal/strictnumbers.h"
#include "ttconfig/fault.h"

namespace ttconfig {

namespace {

const std::map<std::string, Format> kFormats = {
    {"text", Format::Text}, {"json", Format::Json}, {"markdown", Format::Markdown}};
const std::vector<std::string> kPlainFormats = {"text", "json"};
const std::vector<std::string> kPageFormats = {"text", "json", "markdown"};

constexpr const char* kAbout =
    "Asks the trading client's configuration: what a settings file says, and what the library answers from it.";

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
    "  ttconfig ask --format json getAllpts --settings settings.ini\n"
    "  ttconfig ask getMaxPermission -- -name-";

constexpr const char* kSwitchesHelp =
    "Example:\n"
    "  ttconfig switches | grep margin";

constexpr const char* kKeysHelp =
    "NAME is a key, the name of a section, or the key of a platform switch.\n\n"
    "Examples:\n"
    "  ttconfig keys\n"
    "  ttconfig keys flowhistorydays";

constexpr const char* kProductsHelp =
    "Example:\n"
    "  ttconfig products --settings samples/settings.ini";

constexpr const char* kSummaryHelp =
    "Example:\n"
    "  ttconfig summary -C samples/bin --settings ../settings.ini --platform ../platform.json";

constexpr const char* kLimitsHelp =
    "Shows the largest order and block trade, the unit word, the units and the rates, and for each what decided:\n"
    "a row of the settings file with its line, the lack of one, or a numbered rule.\n\n"
    "Examples:\n"
    "  ttconfig limits SH 600000 --settings samples/settings.ini --platform samples/platform.json\n"
    "  ttconfig limits SHO 10007001 --price-type 84 --op 51 --settings samples/settings.ini";

constexpr const char* kSessionsHelp =
    "Without markets, all that the script lists are shown. A session's start belongs to it, its end does not.\n\n"
    "Examples:\n"
    "  ttconfig sessions -C samples/bin\n"
    "  ttconfig sessions --script samples/luaScripts/MarketTime.lua --at 21:30:00 SHFE CZCE";

constexpr const char* kAlgosHelp =
    "Shows, for each function of the algorithm script, the right that opens it, the size of its answer and the name "
    "of\n"
    "the record that comes of it.\n\n"
    "Example:\n"
    "  ttconfig algos --script samples/luaScripts/AlgoParams.lua --rights mdl_alg_twap,mdl_alg_jazz1";

constexpr const char* kScriptHelp =
    "Example:\n"
    "  ttconfig script check samples/luaScripts/MarketTime.lua";

constexpr const char* kScriptCheckHelp =
    "Prints a line FILE:LINE: WHERE: MESSAGE for everything that the client would pass over, log or take for "
    "something\n"
    "else. Exit code 0: nothing found; 1: something found; 3: the file cannot be read.\n\n"
    "Example:\n"
    "  ttconfig script check --timeout 2 samples/luaScripts/MarketTime.lua";

// What CLI11 writes its findings to; empty texts stand for options that were not given.
struct Findings {
    std::vector<std::string> rootDirectories;
    std::vector<std::string> directories;
    std::string settings;
    std::string platform;
    std::string logFile;
    std::string format = "text";
    std::string call;
    std::string keyName;
    std::string market;
    std::string code;
    std::string priceType;
    std::string op;
    std::vector<std::string> markets;
    std::string script;
    std::string at;
    std::string rights;
    std::string scriptFile;
    double timeoutSeconds = 10.0;
    std::string shownOnly;  // stands for the further arguments of ask in the help text
};

// May be given several times: each directory is seen from the one before.
void addDirectory(CLI::App& app, std::vector<std::string>& directories) {
    app.add_option("-C", directories, "Change to this directory first")->type_name("DIR")->allow_extra_args(false);
}

void addShared(CLI::App& app, Findings& findings) {
    addDirectory(app, findings.directories);
    app.add_option("--settings", findings.settings, "Load this settings file first")->type_name("FILE");
    app.add_option("--platform", findings.platform, "Load this platform data file first")->type_name("FILE");
    app.add_option("--log-file", findings.logFile, "Write the library's log lines to this file")->type_name("FILE");
}

// The option's text, checked; collect() turns it into a Format.
void addFormat(CLI::App& app, std::string& format, const std::vector<std::string>& formats) {
    const std::string names = CLI::detail::join(formats, ", ");
    app.add_option("--format", format, "How the answer is written: " + names)
        ->type_name("FORMAT")
        ->default_str("text")
        ->check([formats, names](const std::string& given) {
            const bool known = std::find(formats.begin(), formats.end(), given) != formats.end();
            return known ? std::string() : given + " is none of " + names;
        });
}

CLI::App& addCommand(CLI::App& app, const char* name, const char* description, const char* help) {
    CLI::App& command = *app.add_subcommand(name, description);
    command.footer(help);
    return command;
}

// The option's text, checked; collect() turns it into a number.
void addNumber(CLI::App& app, const std::string& name, std::string& number, const std::string& meaning) {
    app.add_option(name, number, meaning)->type_name("N")->check([](const std::string& given) {
        const bool isNumber = ttservice::internal::strictInt(given).has_value();
        return isNumber ? std::string() : given + " is no whole number of 32 bits";
    });
}

void addLimits(CLI::App& app, Findings& findings) {
    CLI::App& limits = addCommand(
        app, "limits", "Show the limits, units and rates of an instrument's order, and what decides them", kLimitsHelp);
    addShared(limits, findings);
    addFormat(limits, findings.format, kPlainFormats);
    addNumber(limits, "--price-type", findings.priceType, "How the order is priced; without it, no way in particular");
    addNumber(limits, "--op", findings.op, "What the order does; without it, nothing in particular");
    limits.add_option("MARKET", findings.market, "The instrument's market")->required();
    limits.add_option("CODE", findings.code, "The instrument's code")->required();
}

void addScriptCommands(CLI::App& app, Findings& findings) {
    CLI::App& sessions = addCommand(app, "sessions", "Show when markets trade", kSessionsHelp);
    addShared(sessions, findings);
    addFormat(sessions, findings.format, kPlainFormats);
    sessions.add_option("--script", findings.script, "Read this market-time script, not ../luaScripts/MarketTime.lua")
        ->type_name("FILE");
    sessions.add_option("--at", findings.at, "Tell also whether the market trades at this time")->type_name("HH:MM:SS");
    sessions.add_option("MARKET", findings.markets, "The markets to show");

    CLI::App& algos = addCommand(app, "algos", "Show what the algorithm catalogue makes of a script", kAlgosHelp);
    addShared(algos, findings);
    addFormat(algos, findings.format, kPlainFormats);
    algos.add_option("--script", findings.script, "The algorithm script")->type_name("FILE")->required();
    algos.add_option("--rights", findings.rights, "Hold these rights, besides those of the platform data")
        ->type_name("ID,...");

    CLI::App& script = addCommand(app, "script", "Examine scripts", kScriptHelp);
    script.require_subcommand(1);
    CLI::App& check = addCommand(script, "check", "Run a script and tell what is wrong with it", kScriptCheckHelp);
    addDirectory(check, findings.directories);
    addFormat(check, findings.format, kPlainFormats);
    check
        .add_option("--timeout", findings.timeoutSeconds, "Seconds after which a script is ended that does not return")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.01, 86400.0));
    check.add_option("FILE", findings.scriptFile, "The script")->required();
}

void addCommands(CLI::App& app, Findings& findings) {
    CLI::App& session =
        addCommand(app, "session", "Answer requests from standard input, one JSON object a line", kSessionHelp);
    addShared(session, findings);

    CLI::App& ask = addCommand(app, "ask", "Ask one question and print the answer", kAskHelp);
    addShared(ask, findings);
    addFormat(ask, findings.format, kPlainFormats);
    ask.add_option("CALL", findings.call, "What is asked: the name of an operation")->required();
    // Never matched: the arguments of the question are what is left over, so that CLI11 takes no list apart.
    ask.add_option("ARG...", findings.shownOnly, "The arguments of the operation")->expected(0, 1);
    ask.allow_extras();

    CLI::App& switches = addCommand(app, "switches", "List the platform switches", kSwitchesHelp);
    addFormat(switches, findings.format, kPageFormats);

    CLI::App& keys = addCommand(app, "keys", "List the keys of the settings file, or show one", kKeysHelp);
    addFormat(keys, findings.format, kPageFormats);
    keys.add_option("NAME", findings.keyName, "The key to show");

    CLI::App& summary =
        addCommand(app, "summary", "Show what a settings file says and what follows from it", kSummaryHelp);
    addShared(summary, findings);
    addFormat(summary, findings.format, kPlainFormats);

    CLI::App& products = addCommand(
        app, "products", "Show the algorithm products, futures and ETF lists and money-market funds", kProductsHelp);
    addShared(products, findings);
    addFormat(products, findings.format, kPlainFormats);

    addLimits(app, findings);
    addScriptCommands(app, findings);
}

bool isNumberLike(const std::string& word) {
    return word.size() > 1 && (word[1] == '.' || (word[1] >= '0' && word[1] <= '9'));
}

// The question of ask: the call, what was left over, and the words behind "--". Other left-overs are unknown options.
std::vector<std::string> askedWords(const CLI::App& ask, const std::string& call,
                                    const std::vector<std::string>& literal) {
    std::vector<std::string> words{call};
    for (const std::string& word : ask.remaining()) {
        if (word.size() > 1 && word[0] == '-' && !isNumberLike(word)) {
            throw CLI::ExtrasError("ask", {word + " (write -- in front of an argument that is no option)"});
        }
        words.push_back(word);
    }
    words.insert(words.end(), literal.begin(), literal.end());
    return words;
}

std::optional<std::string> given(const CLI::App& command, const std::string& name, const std::string& value) {
    const CLI::Option* option = command.get_option_no_throw(name);
    if (option == nullptr || option->count() == 0) return std::nullopt;
    return value;
}

void collectLimits(const CLI::App& command, const Findings& findings, CommandLine& commandLine) {
    using ttservice::internal::strictInt;
    if (commandLine.command != Command::Limits) return;
    commandLine.words = {findings.market, findings.code};
    if (auto number = given(command, "--price-type", findings.priceType)) commandLine.priceType = strictInt(*number);
    if (auto number = given(command, "--op", findings.op)) commandLine.op = strictInt(*number);
}

void collectScripts(const CLI::App& command, const Findings& findings, CommandLine& commandLine) {
    if (commandLine.command == Command::Sessions) commandLine.words = findings.markets;
    if (auto file = given(command, "FILE", findings.scriptFile)) commandLine.words.push_back(*file);
    commandLine.script = given(command, "--script", findings.script);
    commandLine.shared.script = commandLine.script;
    commandLine.at = given(command, "--at", findings.at);
    commandLine.rights = given(command, "--rights", findings.rights);
    commandLine.timeoutSeconds = findings.timeoutSeconds;
}

void collect(const CLI::App& app, const Findings& findings, const std::vector<std::string>& literal,
             CommandLine& commandLine) {
    static const std::map<std::string, Command> kCommands = {
        {"session", Command::Session},   {"ask", Command::Ask},         {"switches", Command::Switches},
        {"keys", Command::Keys},         {"summary", Command::Summary}, {"products", Command::Products},
        {"sessions", Command::Sessions}, {"algos", Command::Algos},     {"script", Command::ScriptCheck},
        {"limits", Command::Limits}};
    const CLI::App& topic = *app.get_subcommands().front();
    const CLI::App& command = topic.get_subcommands().empty() ? topic : *topic.get_subcommands().front();
    commandLine.format = kFormats.at(findings.format);
    commandLine.command = kCommands.at(topic.get_name());
    SharedOptions& shared = commandLine.shared;
    shared.directories = findings.rootDirectories;
    shared.directories.insert(shared.directories.end(), findings.directories.begin(), findings.directories.end());
    shared.settings = given(command, "--settings", findings.settings);
    shared.platform = given(command, "--platform", findings.platform);
    shared.logFile = given(command, "--log-file", findings.logFile);
    if (commandLine.command == Command::Ask) {
        commandLine.words = askedWords(command, findings.call, literal);
    } else if (!literal.empty()) {
        throw CLI::ExtrasError(command.get_name(), literal);
    }
    if (auto name = given(command, "NAME", findings.keyName)) commandLine.words.push_back(*name);
    collectLimits(command, findings, commandLine);
    collectScripts(command, findings, commandLine);
}

}  // namespace

std::optional<int> readCommandLine(int argc, const char* const* argv, CommandLine& commandLine) {
    Findings findings;
    CLI::App app(kAbout, "ttconfig");
    app.set_version_flag("--version", std::string("ttconfig ") + TTCONFIG_VERSION);
    app.footer("Every subcommand tells more with --help, for example:\n  ttconfig ask --help");
    addDirectory(app, findings.rootDirectories);
    addCommands(app, findings);
    app.require_subcommand(0, 1);

    // Words behind "--" are nobody's options; CLI11 takes them in reverse order, as it does all words.
    std::vector<std::string> words(argv + std::min(argc, 1), argv + argc);
    const auto mark = std::find(words.begin(), words.end(), "--");
    const std::vector<std::string> literal(mark == words.end() ? mark : mark + 1, words.end());
    words.erase(mark, words.end());
    std::reverse(words.begin(), words.end());
    try {
        app.parse(std::move(words));
        if (app.get_subcommands().empty()) {
            std::cerr << app.help();
            return kExitUsage;
        }
        collect(app, findings, literal, commandLine);
    } catch (const CLI::Success& success) {
        app.exit(success, std::cout, std::cerr);
        return kExitDone;
    } catch (const CLI::ParseError& error) {
        std::cerr << "ttconfig: ";
        app.exit(error, std::cout, std::cerr);
        return kExitUsage;
    }
    return std::nullopt;
}

}  // namespace ttconfig
