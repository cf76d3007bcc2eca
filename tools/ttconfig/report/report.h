#pragma once

namespace ttconfig {

struct CommandLine;
class Output;

// Writes one self-contained HTML page about the settings file named: what it switches on for whom, its numbers, the
// trading sessions, what check finds, and with an earlier file to compare with what changes. Answers the exit code.
// Never writes over an input; a page that cannot be written whole leaves what was there before. Not thread-safe.
int runReport(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
