#pragma once

#include "ttconfig/commandline/subcommand.h"

namespace ttconfig {

// Each function registers the options and words of one subcommand. There is one source file per group.

void addSession(CLI::App& app, CommandLine& line);
void addAsk(CLI::App& app, CommandLine& line);
void addExplain(CLI::App& app, CommandLine& line);

void addSwitches(CLI::App& app, CommandLine& line);
void addKeys(CLI::App& app, CommandLine& line);

void addSummary(CLI::App& app, CommandLine& line);
void addPlatform(CLI::App& app, CommandLine& line);
void addProducts(CLI::App& app, CommandLine& line);
void addLimits(CLI::App& app, CommandLine& line);
void addSessions(CLI::App& app, CommandLine& line);
void addAlgos(CLI::App& app, CommandLine& line);

void addCheck(CLI::App& app, CommandLine& line);
void addDiff(CLI::App& app, CommandLine& line);
void addTest(CLI::App& app, CommandLine& line);
void addReport(CLI::App& app, CommandLine& line);
void addScriptCheck(CLI::App& app, CommandLine& line);

void addCompletionBash(CLI::App& app, CommandLine& line);
void addCompletionZsh(CLI::App& app, CommandLine& line);
void addCompletionFish(CLI::App& app, CommandLine& line);
void addCompletionWords(CLI::App& app, CommandLine& line);
void addManual(CLI::App& app, CommandLine& line);

}  // namespace ttconfig
