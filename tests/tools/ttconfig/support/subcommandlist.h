#pragma once

#include <string>
#include <vector>

namespace tests {

// Every subcommand that help shows, each as its words: {"script", "check"}. Taken from the tool's own completion, so
// that a new subcommand is tested as soon as it exists.
std::vector<std::vector<std::string>> allSubcommands();

// The long options of a subcommand (short ones that have no long form), from the same source.
std::vector<std::string> optionsOf(std::vector<std::string> subcommand);

// What the last of these words can become, without the meanings.
std::vector<std::string> completionsOf(const std::vector<std::string>& words);

}  // namespace tests
