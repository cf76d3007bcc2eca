#pragma once

#include <string>
#include <vector>

#include "ttconfig/invocation/commandline.h"
#include "ttconfig/settings/settingsfile.h"

namespace ttconfig {

// Carries out the shared options in this order: enters the directories, checks the settings file, loads the platform
// data, starts the log file, loads the settings. Throws Fault for anything that cannot be used; the settings are not
// loaded then. The log file must be neither one of the inputs nor a file in alsoRead. Returns the state of the settings
// file before it was loaded, for callers that read it again.
FileMoment carryOut(const SharedOptions& options, const std::vector<std::string>& alsoRead = {});

// Closes the log file that carryOut() started. Call it before the program's static objects are destroyed. Returns
// false, after a message on standard error, when a line of the log could not be written.
bool endLogging(const SharedOptions& options);

}  // namespace ttconfig
