#pragma once

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/invocation/output.h"

namespace ttconfig {

// Writes the script that teaches a shell to complete the tool's command line: "completion bash" and so on. The script
// calls `completion words` each time, so it need not change when subcommands, keys, operations or rules do.
int runCompletionScript(const CommandLine& commandLine, Output& output);

// Lists what the last word can become, one per line: the whole word and, after a tab, its meaning. The lines ":files"
// and ":directories" leave names to the shell. A word that cannot be completed gets no line.
int runCompletionWords(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
