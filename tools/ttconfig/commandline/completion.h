#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Writes the script that teaches a shell to complete the tool's command line: "completion bash" and so on. Each asks
// `completion words`, so the script need not be written anew when subcommands, keys, operations or rules come and go.
int runCompletionScript(const CommandLine& commandLine, Output& output);

// Answers what the last of the words may become, a line each: the whole word and, behind a tab, what it means. A line
// ":files" or ":directories" stands for names that the shell knows better. What cannot be completed has no line.
int runCompletionWords(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
