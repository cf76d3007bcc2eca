// The subcommands that list known names: switches, keys.
// Entry points: addSwitches(), addKeys().
// Owns: their help texts.
// Covered by tests/tools/ttconfig/commandline/commandline_test.cpp.

#include "ttconfig/commandline/options.h"
#include "ttconfig/commandline/rooms.h"

namespace ttconfig {

namespace {

constexpr const char* kSwitchesHelp =
    "Examples:\n"
    "  ttconfig switches | grep margin\n"
    "  ttconfig switches --platform 12 --settings settings.ini";

constexpr const char* kKeysHelp =
    "NAME is a key, the name of a section, or the key of a platform switch.\n\n"
    "Examples:\n"
    "  ttconfig keys\n"
    "  ttconfig keys flowhistorydays";

}  // namespace

void addSwitches(CLI::App& app, CommandLine& line) {
    app.footer(kSwitchesHelp);
    addDirectory(app, line.shared.directories);
    CLI::Option& settings = addSettings(app, line);
    CLI::Option& platform =
        addNumber(app, "--platform", line.platformId, "ID", "Tell also which are true for this platform");
    // Each needs the other to be meaningful.
    settings.needs(&platform);
    platform.needs(&settings);
    addFormat(app, line, {"text", "json", "markdown"});
}

void addKeys(CLI::App& app, CommandLine& line) {
    app.footer(kKeysHelp);
    addFormat(app, line, {"text", "json", "markdown"});
    addWord(app, "NAME", line, "", "The key to show").required(false);
}

}  // namespace ttconfig
