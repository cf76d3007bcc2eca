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

// Carries out a subcommand and returns the exit code. Throws Fault for what stops it.
using RunSubcommand = int (*)(const CommandLine&, Output&);

// The options of every subcommand that queries the store.
struct SharedOptions {
    std::vector<std::string> directories;  // entered one after the other
    std::optional<std::string> settings;
    std::optional<std::string> platform;  // the platform data file
    std::optional<std::string> logFile;
    std::optional<std::string> script;  // for subcommands that read one
};

enum class Format { Text, Json, Markdown, Sarif };

struct CommandLine {
    std::string_view subcommand;  // its name, as in "script check"
    RunSubcommand run = nullptr;
    Colouring colouring = Colouring::Auto;
    SharedOptions shared;
    Format format = Format::Text;
    // ask, explain: the call and its arguments; keys: at most one name; limits: market and code; sessions: markets;
    // script check: the script; check: settings files; diff: the old and the new file; platform: platform IDs, each a
    // 32-bit whole number; test: the expectation file; completion: the shell; completion words: the words
    std::vector<std::string> words;
    bool expectTrue = false;                    // ask: the exit code says whether the answer is true
    std::map<std::string, bool> overrides;      // explain: local overrides by key
    std::optional<std::string> whyNot;          // explain: the expected answer
    std::vector<std::string> disabledRules;     // check
    std::vector<std::string> fatalRules;        // check
    std::optional<std::string> explainedRule;   // check: the rule to explain; then words may be empty
    std::optional<std::vector<int>> platforms;  // diff: the platforms to compare for
    std::optional<int> platformId;              // switches
    std::optional<std::string> against;         // report: the settings to compare with
    std::optional<std::string> outputFile;      // report (required): the page to write
    std::optional<int> priceType;               // limits
    std::optional<int> op;                      // limits
    std::optional<std::string> script;          // sessions, algos
    std::optional<std::string> at;              // sessions: a time of day, as given
    std::optional<std::string> rights;          // algos: products separated by ","
    double timeoutSeconds = 10.0;               // script check
};

}  // namespace ttconfig
