#pragma once

#include <string>
#include <vector>

#include "ttconfig/commandline/subcommand.h"

namespace ttconfig {

// Options that several subcommands share. The help shows the type of a value, and completion depends on it: FILE, DIR,
// RULE, RULE,... for a list of rules, KEY=true|false, or the possible values separated by "|". An option with an empty
// value counts as given.

// May be given several times: each directory is relative to the one before.
void addDirectory(CLI::App& app, std::vector<std::string>& directories);

void addColour(CLI::App& app, CommandLine& line);

CLI::Option& addSettings(CLI::App& app, CommandLine& line);

void addPlatformData(CLI::App& app, CommandLine& line);

// -C, --settings, --platform, --log-file.
void addShared(CLI::App& app, CommandLine& line);

// The first format is the default.
void addFormat(CLI::App& app, CommandLine& line, const std::vector<std::string>& formats,
               const std::string& meaning = "How the answer is written");

CLI::Option& addText(CLI::App& app, const std::string& name, std::optional<std::string>& text, const std::string& type,
                     const std::string& meaning);

CLI::Option& addNumber(CLI::App& app, const std::string& name, std::optional<int>& number, const std::string& type,
                       const std::string& meaning);

// May be given several times, each time with one value.
CLI::Option& addTexts(CLI::App& app, const std::string& name, std::vector<std::string>& texts, const std::string& type,
                      const std::string& meaning);

// One required word. Words are told apart by the order in which they are added.
CLI::Option& addWord(CLI::App& app, const std::string& name, CommandLine& line, const std::string& type,
                     const std::string& meaning);

// Empty for a 32-bit whole number, otherwise what is wrong.
std::string whyNoNumber(const std::string& given);

}  // namespace ttconfig
