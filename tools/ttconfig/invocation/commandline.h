#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ttconfig/text/colour.h"

namespace ttconfig {

class Output;
struct CommandLine;

// Carries a subcommand out and answers the exit code. Throws Fault for what stops it.
using RunSubcommand = int (*)(const CommandLine&, Output&);

// The options of every subcommand that asks the store something.
struct SharedOptions {
    std::vector<std::string> directories;  // entered one after the other
    std::optional<std::string> settings;
    std::optional<std::string> platform;  // the platform data file
    std::optional<std::string> logFile;
    std::optional<std::string> script;  // of the subcommands that read one
};

enum class Format { Text, Json, Markdown, Sarif };

struct CommandLine {
    std::string_view subcommand;  // its name, as in "script check"
    RunSubcommand run = nullptr;
    Colouring colouring = Colouring::Auto;
    SharedOptions shared;
    Format format = Format::Text;
    // ask, explain: the call and its arguments; keys: at most one name; limits: market and code; sessions: markets;
    // script check: the script; check: settings files; diff: the old and the new file; platform: IDs, each a whole
    // number of 32 bits; test: the expectations; completion: what is asked for; completion words: the words
    std::vector<std::string> words;
    bool expectTrue = false;                    // ask: the exit code says whether the answer is true
    std::map<std::string, bool> overrides;      // explain: what the user has decided, by key
    std::optional<std::string> whyNot;          // explain: the answer that was expected
    std::vector<std::string> disabledRules;     // check
    std::vector<std::string> fatalRules;        // check
    std::optional<std::string> explainedRule;   // check: the rule to explain; there may be no words then
    std::optional<std::vector<int>> platforms;  // diff: the platforms to compare for
    std::optional<int> platformId;              // switches
    std::optional<std::string> against;         // report: the settings to compare with
    std::optional<std::string> outputFile;      // report, which cannot do without: the page to write
    std::optional<int> priceType;               // limits
    std::optional<int> op;                      // limits
    std::optional<std::string> script;          // sessions, algos
    std::optional<std::string> at;              // sessions: a time of the day, as it was written
    std::optional<std::string> rights;          // algos: products with a "," between them
    double timeoutSeconds = 10.0;               // script check
};

}  // namespace ttconfig
