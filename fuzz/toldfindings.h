#pragma once

#include <string>
#include <vector>

#include "ttconfig/findings/finding.h"

namespace fuzz {

// A file that `ttconfig check` was given, and what it has to tell about it.
struct CheckedFile {
    std::string path;
    bool isUsable = true;
    std::vector<ttconfig::Finding> findings;
    std::vector<std::string> lines;  // of the file, as bytes
};

// Each ends the program unless the output tells that, all of it, and nothing else.
void checkFindingsText(const std::string& output, const std::vector<CheckedFile>& files);
void checkFindingsJson(const std::string& output, const std::vector<CheckedFile>& files);
void checkFindingsSarif(const std::string& output, const std::vector<CheckedFile>& files);

}  // namespace fuzz
