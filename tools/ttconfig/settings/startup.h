#pragma once

#include <string>
#include <vector>

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/settings/settingsfile.h"

namespace ttconfig {

// Carries the shared options out, in this order: enters the directories, looks at the settings file, loads the platform
// data, starts the log file, loads the settings. Throws Fault for what cannot be used; nothing is loaded then. What
// else may be a file that is read is no log file either. Answers how the settings file was before it was loaded, for
// who reads it once more.
FileMoment carryOut(const SharedOptions& options, const std::vector<std::string>& alsoRead = {});

// Ends what carryOut() began: the log file. To be called before the program's static objects are destroyed. False,
// after a message on the standard error stream, when a line of the log could not be written.
bool endLogging(const SharedOptions& options);

}  // namespace ttconfig
