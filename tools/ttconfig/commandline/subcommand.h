#pragma once

#include <CLI/CLI.hpp>
#include <string_view>
#include <vector>

#include "ttconfig/invocation/commandline.h"

namespace ttconfig {

// Adds what a subcommand can be told to its part of the command line, and its help's examples; what is given goes into
// the CommandLine.
using AddOptions = void (*)(CLI::App&, CommandLine&);

// What the words are that are no options.
enum class Words {
    Registered,  // as the options' function registers them
    Question,    // a call and its arguments, which CLI11 would take apart where they are lists: all that is left over
    Literal,     // whatever they are, options included
};

struct Subcommand {
    std::string_view name;  // of two words where it is a part of a topic, which kTopics then has
    const char* about;
    AddOptions addOptions;
    RunSubcommand run;
    Words words = Words::Registered;
    bool hidden = false;  // is in no help, manual or completion
};

// What stands above subcommands of two words.
struct Topic {
    std::string_view name;
    const char* about;
    const char* examples;
    bool hidden = false;
};

// In the order of the help.
const std::vector<Subcommand>& subcommands();
const std::vector<Topic>& topics();

// Everything that is registered: the program with its subcommands, in the order of the help. What is given on a command
// line that is parsed goes into "commandLine", what is given in front of the subcommand into "rootDirectories".
class Registration {
public:
    explicit Registration(CommandLine& commandLine);

    CLI::App& app() { return root; }

    // Parses, and fills the command line.
    void parse(std::vector<std::string> words);

    // Behind a command line that was refused for a word where a subcommand's name should be: "; did you mean NAME?", or
    // nothing when no name is near or something else was wrong.
    std::string suggestion() const;

private:
    void add(const Subcommand& row);
    CLI::App& topic(const Topic& row);
    void collect(const std::vector<std::string>& literal);

    CommandLine& line;
    std::vector<std::string> rootDirectories;
    CLI::App root;
    std::vector<CLI::App*> added;  // as subcommands() has them
};

}  // namespace ttconfig
