#pragma once

#include <CLI/CLI.hpp>
#include <string_view>
#include <vector>

#include "ttconfig/invocation/commandline.h"

namespace ttconfig {

// Adds a subcommand's options, words and help examples to its part of the command line. Parsed values go into the
// CommandLine.
using AddOptions = void (*)(CLI::App&, CommandLine&);

// How words that are not options are read.
enum class Words {
    Registered,  // as AddOptions registers them
    Question,    // a call and its arguments: all words left over, as CLI11 would split lists
    Literal,     // as they stand, even if they look like options
};

struct Subcommand {
    std::string_view name;  // two words if it belongs to a topic, which topics() must list
    const char* about;
    AddOptions addOptions;
    RunSubcommand run;
    Words words = Words::Registered;
    bool hidden = false;  // left out of help, manual and completion
};

// The first word of two-word subcommands.
struct Topic {
    std::string_view name;
    const char* about;
    const char* examples;
    bool hidden = false;
};

// In the order of the help.
const std::vector<Subcommand>& subcommands();
const std::vector<Topic>& topics();

// The program with all its subcommands, in the order of the help. Parsed values go into the CommandLine, directories
// given before the subcommand into rootDirectories.
class Registration {
public:
    explicit Registration(CommandLine& commandLine);

    CLI::App& app() { return root; }

    // Parses the words and fills the CommandLine.
    void parse(std::vector<std::string> words);

    // For the message about a word that should be the name of a subcommand and is not: "; did you mean NAME?". Empty
    // when no name is near or when something else was wrong.
    std::string suggestion() const;

private:
    void add(const Subcommand& row);
    CLI::App& topic(const Topic& row);
    void collect(const std::vector<std::string>& literal);

    CommandLine& line;
    std::vector<std::string> rootDirectories;
    CLI::App root;
    std::vector<CLI::App*> added;  // in the order of subcommands()
};

}  // namespace ttconfig
