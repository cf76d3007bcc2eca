// The subcommands that show what follows from settings: summary, platform, products, limits, sessions, algos.
// Entry points: addSummary(), addPlatform(), addProducts(), addLimits(), addSessions(), addAlgos().
// Owns: their help texts.
// Covered by tests/tools/ttconfig/commandline/commandline_test.cpp.

#include "ttconfig/commandline/options.h"
#include "ttconfig/commandline/rooms.h"

namespace ttconfig {

namespace {

constexpr const char* kSummaryHelp =
    "Example:\n"
    "  ttconfig summary -C samples/bin --settings ../settings.ini --platform ../platform.json";

constexpr const char* kPlatformHelp =
    "Shows the switches that are on and the values that differ from those of other platforms, each with its place in\n"
    "the file.\n\n"
    "Example:\n"
    "  ttconfig platform 12 47 --settings samples/settings.ini";

constexpr const char* kProductsHelp =
    "Example:\n"
    "  ttconfig products --settings samples/settings.ini";

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
    "Shows, for each function of the algorithm script, the right that opens it, the size of its answer and the name\n"
    "of the record that comes of it.\n\n"
    "Example:\n"
    "  ttconfig algos --script samples/luaScripts/AlgoParams.lua --rights mdl_alg_twap,mdl_alg_jazz1";

// The script is an input, so no output may overwrite it.
CLI::Option& addScript(CLI::App& app, CommandLine& line, const std::string& meaning) {
    const auto take = [&line](const std::string& given) {
        line.script = given;
        line.shared.script = given;
    };
    return *app.add_option_function<std::string>("--script", take, meaning)->type_name("FILE");
}

}  // namespace

void addSummary(CLI::App& app, CommandLine& line) {
    app.footer(kSummaryHelp);
    addShared(app, line);
    addFormat(app, line, {"text", "json"});
}

void addPlatform(CLI::App& app, CommandLine& line) {
    app.footer(kPlatformHelp);
    addDirectory(app, line.shared.directories);
    addSettings(app, line).required();
    addFormat(app, line, {"text", "json"});
    app.add_option("ID", line.words, "The platforms")->type_name("")->required()->check(whyNoNumber);
}

void addProducts(CLI::App& app, CommandLine& line) {
    app.footer(kProductsHelp);
    addShared(app, line);
    addFormat(app, line, {"text", "json"});
}

void addLimits(CLI::App& app, CommandLine& line) {
    app.footer(kLimitsHelp);
    addShared(app, line);
    addFormat(app, line, {"text", "json"});
    addNumber(app, "--price-type", line.priceType, "N", "How the order is priced; without it, no way in particular");
    addNumber(app, "--op", line.op, "N", "What the order does; without it, nothing in particular");
    addWord(app, "MARKET", line, "", "The instrument's market");
    addWord(app, "CODE", line, "", "The instrument's code");
}

void addSessions(CLI::App& app, CommandLine& line) {
    app.footer(kSessionsHelp);
    addShared(app, line);
    addFormat(app, line, {"text", "json"});
    addScript(app, line, "Read this market-time script, not ../luaScripts/MarketTime.lua");
    addText(app, "--at", line.at, "HH:MM:SS", "Tell also whether the market trades at this time");
    app.add_option("MARKET", line.words, "The markets to show")->type_name("");
}

void addAlgos(CLI::App& app, CommandLine& line) {
    app.footer(kAlgosHelp);
    addShared(app, line);
    addFormat(app, line, {"text", "json"});
    addScript(app, line, "The algorithm script").required();
    addText(app, "--rights", line.rights, "ID,...", "Hold these rights, besides those of the platform data");
}

}  // namespace ttconfig
