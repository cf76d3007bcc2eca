#pragma once

#include <string>
#include <vector>

#include "ttconfig/commandline/subcommand.h"

namespace ttconfig {

// Options that several subcommands have. A value's type is what the help shows and the completion goes by: FILE, DIR,
// RULE, RULE,... for a list of them, KEY=true|false, or the values there are with a "|" between them. An option that
// was given with an empty value was given.

// May be given several times: each directory is seen from the one before.
void addDirectory(CLI::App& app, std::vector<std::string>& directories);

void addColour(CLI::App& app, CommandLine& line);

CLI::Option& addSettings(CLI::App& app, CommandLine& line);

void addPlatformData(CLI::App& app, CommandLine& line);

// -C, --settings, --platform, --log-file.
void addShared(CLI::App& app, CommandLine& line);

// The first of the formats is the one without the option.
void addFormat(CLI::App& app, CommandLine& line, const std::vector<std::string>& formats,
               const std::string& meaning = "How the answer is written");

CLI::Option& addText(CLI::App& app, const std::string& name, std::optional<std::string>& text, const std::string& type,
                     const std::string& meaning);

CLI::Option& addNumber(CLI::App& app, const std::string& name, std::optional<int>& number, const std::string& type,
                       const std::string& meaning);

// May be given several times, each time with one value.
CLI::Option& addTexts(CLI::App& app, const std::string& name, std::vector<std::string>& texts, const std::string& type,
                      const std::string& meaning);

// One word that must be there. Words are told apart by the order in which they are added.
CLI::Option& addWord(CLI::App& app, const std::string& name, CommandLine& line, const std::string& type,
                     const std::string& meaning);

// Refuses what is no whole number of 32 bits.
std::string whyNoNumber(const std::string& given);

}  // namespace ttconfig
