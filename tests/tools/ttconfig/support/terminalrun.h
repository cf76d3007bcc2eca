#pragma once

#include <string>
#include <vector>

namespace tests {

// Which of the tool's streams a terminal is behind; the others are /dev/null.
enum class Terminal { Output, Error };

// Runs the tool with one stream on a terminal of its own, with these further variables in its environment ("A=b"; "A"
// takes a variable away), and answers everything that the terminal was told.
std::string runOnTerminal(const std::vector<std::string>& arguments, Terminal which,
                          const std::vector<std::string>& environment = {});

}  // namespace tests
