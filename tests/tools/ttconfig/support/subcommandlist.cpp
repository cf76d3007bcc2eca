#include "tests/tools/ttconfig/support/subcommandlist.h"

#include "tests/tools/ttconfig/support/toolrun.h"

namespace tests {

std::vector<std::string> completionsOf(const std::vector<std::string>& words) {
    std::vector<std::string> arguments = {"completion", "words", "--"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    std::vector<std::string> found;
    for (const std::string& line : runTool(arguments).lines())
        found.push_back(line.substr(0, line.find('\t')));
    return found;
}

std::vector<std::vector<std::string>> allSubcommands() {
    std::vector<std::vector<std::string>> all;
    for (const std::string& name : completionsOf({""})) {
        const bool isTopic = name == "script" || name == "completion";
        if (!isTopic) all.push_back({name});
        if (!isTopic) continue;
        for (const std::string& below : completionsOf({name, ""}))
            all.push_back({name, below});
    }
    return all;
}

std::vector<std::string> optionsOf(std::vector<std::string> subcommand) {
    subcommand.push_back("-");
    return completionsOf(subcommand);
}

}  // namespace tests
