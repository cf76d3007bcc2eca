// Options: registers the options that several subcommands share.
// Owns: the values of --format and --color.
// Covered by tests/tools/ttconfig/commandline/commandline_test.cpp.

#include "ttconfig/commandline/options.h"

#include <algorithm>

#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace ttconfig {

namespace {

const std::map<std::string, Format> kFormats = {
    {"text", Format::Text}, {"json", Format::Json}, {"markdown", Format::Markdown}, {"sarif", Format::Sarif}};

const std::map<std::string, Colouring> kColourings = {
    {"auto", Colouring::Auto}, {"always", Colouring::Always}, {"never", Colouring::Never}};

// An option whose value is one of these words.
CLI::Option& addChoice(CLI::App& app, const std::string& name, const std::vector<std::string>& words,
                       const std::function<void(const std::string&)>& choose, const std::string& meaning) {
    const auto whyNone = [words](const std::string& given) {
        const bool known = std::find(words.begin(), words.end(), given) != words.end();
        return known ? std::string() : given + " is none of " + CLI::detail::join(words, ", ");
    };
    return *app.add_option_function<std::string>(name, choose, meaning)
                ->type_name(CLI::detail::join(words, "|"))
                ->default_str(words.front())
                ->check(whyNone);
}

}  // namespace

void addDirectory(CLI::App& app, std::vector<std::string>& directories) {
    addTexts(app, "-C", directories, "DIR", "Change to this directory first");
}

void addColour(CLI::App& app, CommandLine& line) {
    addChoice(
        app, "--color", {"auto", "always", "never"},
        [&line](const std::string& given) { line.colouring = kColourings.at(given); },
        "Colour the answer; auto: on a terminal, unless NO_COLOR is set");
}

CLI::Option& addSettings(CLI::App& app, CommandLine& line) {
    return addText(app, "--settings", line.shared.settings, "FILE", "Load this settings file first");
}

void addPlatformData(CLI::App& app, CommandLine& line) {
    addText(app, "--platform", line.shared.platform, "FILE", "Load this platform data file first");
}

void addShared(CLI::App& app, CommandLine& line) {
    addDirectory(app, line.shared.directories);
    addSettings(app, line);
    addPlatformData(app, line);
    addText(app, "--log-file", line.shared.logFile, "FILE", "Write the library's log lines to this file");
}

void addFormat(CLI::App& app, CommandLine& line, const std::vector<std::string>& formats, const std::string& meaning) {
    addChoice(
        app, "--format", formats, [&line](const std::string& given) { line.format = kFormats.at(given); }, meaning);
}

CLI::Option& addText(CLI::App& app, const std::string& name, std::optional<std::string>& text, const std::string& type,
                     const std::string& meaning) {
    // Not bound to the text directly: CLI11 would treat an empty value as missing.
    const auto take = [&text](const std::string& given) { text = given; };
    return *app.add_option_function<std::string>(name, take, meaning)->type_name(type);
}

CLI::Option& addNumber(CLI::App& app, const std::string& name, std::optional<int>& number, const std::string& type,
                       const std::string& meaning) {
    const auto take = [&number](const std::string& given) { number = ttservice::internal::strictInt(given); };
    return *app.add_option_function<std::string>(name, take, meaning)->type_name(type)->check(whyNoNumber);
}

CLI::Option& addTexts(CLI::App& app, const std::string& name, std::vector<std::string>& texts, const std::string& type,
                      const std::string& meaning) {
    return *app.add_option(name, texts, meaning)->type_name(type)->allow_extra_args(false);
}

CLI::Option& addWord(CLI::App& app, const std::string& name, CommandLine& line, const std::string& type,
                     const std::string& meaning) {
    const auto take = [&line](const std::string& given) { line.words.push_back(given); };
    return *app.add_option_function<std::string>(name, take, meaning)->type_name(type)->required();
}

std::string whyNoNumber(const std::string& given) {
    const bool isNumber = ttservice::internal::strictInt(given).has_value();
    return isNumber ? std::string() : given + " is no whole number of 32 bits";
}

}  // namespace ttconfig
