#pragma once

#include <string>
#include <vector>

namespace tests {

// Which of the tool's streams is a terminal; the others are /dev/null.
enum class Terminal { Output, Error };

// Whether this machine lets us open pseudo terminals.
bool hasTerminals();

// Runs the tool with one stream on a terminal of its own and these changes to the environment: "A=b" sets a variable,
// "A" removes one. Returns everything written to the terminal.
std::string runOnTerminal(const std::vector<std::string>& arguments, Terminal which,
                          const std::vector<std::string>& environment = {});

}  // namespace tests
