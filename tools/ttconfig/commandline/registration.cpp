// Registration: describes the command line to CLI11 from the table of subcommands, and parses it.
// Entry points: Registration.
// Owns: the program's own options and help text.
// Covered by tests/tools/ttconfig/commandline/commandline_test.cpp.

#include <fmt/format.h>

#include <algorithm>

#include "traderbase/base/config/version.h"
#include "ttconfig/commandline/options.h"
#include "ttconfig/commandline/subcommand.h"
#include "ttconfig/invocation/exitcodes.h"
#include "ttconfig/text/nearestname.h"

namespace ttconfig {

namespace {

constexpr const char* kAbout =
    "Asks the trading client's configuration: what a settings file says, and what the library answers from it.";

// The exit codes, and where to read more.
std::string footer() {
    std::string text = "Exit codes:\n";
    for (const auto& [code, meaning] : kExitCodes)
        text += fmt::format("  {}  {}\n", static_cast<int>(code), meaning);
    return text + "\nEvery subcommand tells more with --help, for example:\n  ttconfig ask --help";
}

std::string versions() {
    return std::string("ttconfig ") + TTCONFIG_VERSION + "\ntraderbaseconfig " + ttservice::traderbaseVersion();
}

bool isNumberLike(const std::string& word) {
    return word.size() > 1 && (word[1] == '.' || (word[1] >= '0' && word[1] <= '9'));
}

// The words of a question that CLI11 left over. One that looks like an option is refused as unknown.
std::vector<std::string> askedWords(const CLI::App& app) {
    std::vector<std::string> words = app.remaining();
    for (const std::string& word : words) {
        if (word.size() > 1 && word[0] == '-' && !isNumberLike(word)) {
            throw CLI::ExtrasError(app.get_name(), {word + " (write -- in front of an argument that is no option)"});
        }
    }
    return words;
}

// Whether any subcommand has an option of that name that takes a value.
bool takesValue(const CLI::App& app, const std::string& name) {
    const auto hasIt = [&name](const CLI::App* each) {
        const CLI::Option* option = each->get_option_no_throw(name);
        return option != nullptr && option->get_items_expected_max() > 0;
    };
    const auto parts = app.get_subcommands(nullptr);
    return hasIt(&app) ||
           std::any_of(parts.begin(), parts.end(), [&name](const CLI::App* part) { return takesValue(*part, name); });
}

// Splits "--name=" into the option and an empty value; CLI11 would take the next word as its value.
std::vector<std::string> withEmptyValues(const CLI::App& app, const std::vector<std::string>& words) {
    std::vector<std::string> all;
    for (const std::string& word : words) {
        const bool isLong = word.size() > 3 && word.compare(0, 2, "--") == 0 && word.find('=') == word.size() - 1;
        const std::string name = isLong ? word.substr(0, word.size() - 1) : std::string();
        if (isLong && takesValue(app, name)) {
            all.push_back(name);
            all.emplace_back();
        } else {
            all.push_back(word);
        }
    }
    return all;
}

void append(const std::vector<std::string>& more, std::vector<std::string>& words) {
    words.insert(words.end(), more.begin(), more.end());
}

}  // namespace

Registration::Registration(CommandLine& commandLine) : line(commandLine), root(kAbout, "ttconfig") {
    root.set_version_flag("--version", versions());
    root.footer(footer());
    addDirectory(root, rootDirectories);
    addColour(root, line);
    root.require_subcommand(0, 1);
    for (const Subcommand& row : subcommands())
        add(row);
}

CLI::App& Registration::topic(const Topic& row) {
    const std::string name(row.name);
    const auto there = root.get_subcommands([&name](const CLI::App* app) { return app->get_name() == name; });
    if (!there.empty()) return *there.front();
    CLI::App& app = *root.add_subcommand(name, row.about);
    app.footer(row.examples);
    app.require_subcommand(1);
    if (row.hidden) app.group("");
    return app;
}

void Registration::add(const Subcommand& row) {
    const std::size_t blank = row.name.find(' ');
    CLI::App* parent = &root;
    if (blank != std::string_view::npos) {
        const auto isAbove = [&](const Topic& above) { return above.name == row.name.substr(0, blank); };
        parent = &topic(*std::find_if(topics().begin(), topics().end(), isAbove));
    }
    const std::string name(blank == std::string_view::npos ? row.name : row.name.substr(blank + 1));
    CLI::App& app = *parent->add_subcommand(name, row.about);
    if (row.hidden) app.group("");
    addColour(app, line);
    row.addOptions(app, line);
    added.push_back(&app);
}

// Words after "--" belong to no option. CLI11 takes all words in reverse order.
void Registration::parse(std::vector<std::string> words) {
    const auto mark = std::find(words.begin(), words.end(), "--");
    const std::vector<std::string> literal(mark == words.end() ? mark : mark + 1, words.end());
    words.erase(mark, words.end());
    words = withEmptyValues(root, words);
    std::reverse(words.begin(), words.end());
    root.parse(std::move(words));
    collect(literal);
}

std::string Registration::suggestion() const {
    const CLI::App* app = &root;
    while (!app->get_subcommands().empty())
        app = app->get_subcommands().front();
    const std::vector<std::string> left = app->remaining();
    const auto isName = [](const std::string& word) { return !word.empty() && word.front() != '-'; };
    const auto word = std::find_if(left.begin(), left.end(), isName);
    if (word == left.end()) return {};
    std::vector<std::string> names;
    for (const CLI::App* below : app->get_subcommands([](const CLI::App* each) { return !each->get_group().empty(); }))
        names.push_back(below->get_name());
    return didYouMean(*word, {names.begin(), names.end()});
}

void Registration::collect(const std::vector<std::string>& literal) {
    const auto parsed = std::find_if(added.begin(), added.end(), [](const CLI::App* app) { return app->parsed(); });
    if (parsed == added.end()) return;
    const Subcommand& row = subcommands()[static_cast<std::size_t>(parsed - added.begin())];
    line.subcommand = row.name;
    line.run = row.run;
    line.shared.directories.insert(line.shared.directories.begin(), rootDirectories.begin(), rootDirectories.end());
    if (row.words == Words::Question) append(askedWords(**parsed), line.words);
    if (row.words == Words::Registered && !literal.empty()) throw CLI::ExtrasError((*parsed)->get_name(), literal);
    append(literal, line.words);
}

}  // namespace ttconfig
