#pragma once

#include <string>
#include <vector>

namespace tests {

// Every subcommand that help shows, each as its words: {"script", "check"}. Taken from the tool's own completion, so
// that a new one is tested from the moment it exists.
std::vector<std::vector<std::string>> allSubcommands();

// The long options (short ones where there is no other) of a subcommand, from the same place.
std::vector<std::string> optionsOf(std::vector<std::string> subcommand);

// What the last of these words may become, without the meanings.
std::vector<std::string> completionsOf(const std::vector<std::string>& words);

}  // namespace tests
