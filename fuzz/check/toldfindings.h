#pragma once

#include <string>
#include <vector>

#include "ttconfig/findings/finding.h"

namespace fuzz {

// A file passed to `ttconfig check`, and the findings that it must report for the file.
struct CheckedFile {
    std::string path;
    bool isUsable = true;
    std::vector<ttconfig::Finding> findings;
    std::vector<std::string> lines;  // the lines of the file, as bytes
};

// Each function ends the program unless the output reports exactly these findings.
void checkFindingsText(const std::string& output, const std::vector<CheckedFile>& files);
void checkFindingsJson(const std::string& output, const std::vector<CheckedFile>& files);
void checkFindingsSarif(const std::string& output, const std::vector<CheckedFile>& files);

}  // namespace fuzz
