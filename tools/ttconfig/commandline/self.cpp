// The subcommands about the tool itself: completion, manual.
// Entry points: addCompletionBash(), addCompletionZsh(), addCompletionFish(), addCompletionWords(), addManual().
// Owns: their help texts.
// Covered by tests/tools/ttconfig/commandline/completion_test.cpp.

#include "ttconfig/commandline/rooms.h"

namespace ttconfig {

namespace {

constexpr const char* kBashHelp =
    "Examples:\n"
    "  source <(ttconfig completion bash)\n"
    "  ttconfig completion bash > ~/.local/share/bash-completion/completions/ttconfig";

constexpr const char* kZshHelp =
    "The file belongs into a folder of $fpath.\n\n"
    "Examples:\n"
    "  source <(ttconfig completion zsh)\n"
    "  ttconfig completion zsh > ~/.zfunc/_ttconfig";

constexpr const char* kFishHelp =
    "Examples:\n"
    "  ttconfig completion fish | source\n"
    "  ttconfig completion fish > ~/.config/fish/completions/ttconfig.fish";

constexpr const char* kWordsHelp =
    "Behind -- stand the words that follow the program's name, the last one as far as it has been typed. A line is a\n"
    "word, and behind a tab what it means; the line :files or :directories stands for such names.\n\n"
    "Example:\n"
    "  ttconfig completion words -- ask isNeedM";

constexpr const char* kManualHelp =
    "Example:\n"
    "  ttconfig manual | man -l -";

}  // namespace

void addCompletionBash(CLI::App& app, CommandLine& /*line*/) {
    app.footer(kBashHelp);
}

void addCompletionZsh(CLI::App& app, CommandLine& /*line*/) {
    app.footer(kZshHelp);
}

void addCompletionFish(CLI::App& app, CommandLine& /*line*/) {
    app.footer(kFishHelp);
}

void addCompletionWords(CLI::App& app, CommandLine& /*line*/) {
    app.footer(kWordsHelp);
}

void addManual(CLI::App& app, CommandLine& /*line*/) {
    app.footer(kManualHelp);
}

}  // namespace ttconfig
