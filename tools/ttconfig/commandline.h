#pragma once

#include <optional>
#include <string>
#include <vector>

namespace ttconfig {

// The options of every subcommand that asks the store something.
struct SharedOptions {
    std::vector<std::string> directories;  // entered one after the other
    std::optional<std::string> settings;
    std::optional<std::string> platform;
    std::optional<std::string> logFile;
    std::optional<std::string> script;  // of the subcommands that read one
};

enum class Command { Session, Ask, Switches, Keys, Summary, Products, Limits, Sessions, Algos, ScriptCheck };
enum class Format { Text, Json, Markdown };

struct CommandLine {
    Command command = Command::Session;
    SharedOptions shared;
    Format format = Format::Text;
    // ask: the call and its arguments; keys: at most one name; limits: market and code; sessions: markets;
    // script check: the file
    std::vector<std::string> words;
    std::optional<int> priceType;       // limits
    std::optional<int> op;              // limits
    std::optional<std::string> script;  // sessions, algos
    std::optional<std::string> at;      // sessions: a time of the day, as it was written
    std::optional<std::string> rights;  // algos: products with a "," between them
    double timeoutSeconds = 10.0;       // script check
};

// Reads the command line. Help, the version and usage errors are printed here, and the exit code is returned; nothing
// is returned when there is work to do.
std::optional<int> readCommandLine(int argc, const char* const* argv, CommandLine& commandLine);

}  // namespace ttconfig
