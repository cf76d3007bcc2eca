#pragma once

namespace ttconfig {

struct CommandLine;
class Output;

// Writes one self-contained HTML page about the named settings file: what it switches on and for whom, its numbers, the
// trading sessions, what check finds and, given an earlier file, what has changed. Returns the exit code. Never
// overwrites an input; when the page cannot be written completely, the previous file stays. Not thread-safe.
int runReport(const CommandLine& commandLine, Output& output);

}  // namespace ttconfig
