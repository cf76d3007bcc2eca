// Completion: lists what the last word of a command line can become.
// Entry points: runCompletionWords().
// Owns: the names that each type of word accepts.
// Covered by tests/tools/ttconfig/commandline/completion_test.cpp.

#include "ttconfig/commandline/completion.h"

#include <set>

#include "traderbase/base/config/internal/keys/settingkeys.h"
#include "traderbase/base/config/internal/switches/platformswitchtable.h"
#include "traderbase/base/config/internal/text/splitting.h"
#include "ttconfig/calls/calltable.h"
#include "ttconfig/commandline/subcommand.h"
#include "ttconfig/findings/rules.h"
#include "ttconfig/invocation/fault.h"

namespace ttconfig {

namespace {

using ttservice::internal::kPlatformSwitches;
using ttservice::internal::kSettingKeys;
using ttservice::internal::PlatformSwitch;
using ttservice::internal::SettingKey;

// Collects what the last word can become.
class Candidates {
public:
    explicit Candidates(std::string_view typed) : begun(typed) {}

    // Adds a word, prefixed with what precedes it in the same argument: "--format=" before "json".
    void add(std::string_view word, std::string_view meaning) {
        const std::string whole = before + std::string(word);
        if (whole.compare(0, begun.size(), begun) != 0 || !seen.insert(whole).second) return;
        text += whole;
        if (!meaning.empty()) text += '\t' + std::string(meaning);
        text += '\n';
    }

    // Leaves names to the shell: "files" or "directories".
    void addOfShell(std::string_view what) { text += ':' + std::string(what) + '\n'; }

    void standBehind(std::string_view front) { before = front; }

    std::string_view begunWord() const { return begun.substr(before.size()); }

    const std::string& lines() const { return text; }

private:
    std::string_view begun;
    std::string before;
    std::set<std::string> seen;
    std::string text;
};

void addCalls(Candidates& candidates) {
    std::map<std::string_view, std::string_view> meanings;
    for (const PlatformSwitch& row : kPlatformSwitches)
        meanings.emplace(row.predicate, row.meaning);
    for (const auto& [name, calls] : callTable().rows()) {
        const auto found = meanings.find(name);
        candidates.add(name, found == meanings.end() ? std::string_view() : found->second);
    }
}

void addSwitchKeys(Candidates& candidates, const std::string& behind) {
    for (const PlatformSwitch& row : kPlatformSwitches)
        candidates.add(std::string(row.key) + behind, row.meaning);
}

// The names that `keys` accepts: keys, sections and switches.
void addKeyNames(Candidates& candidates) {
    for (const SettingKey& row : kSettingKeys) {
        if (row.key != "*") candidates.add(row.key, row.meaning);
        candidates.add(row.section, "a section");
    }
    addSwitchKeys(candidates, "");
}

// Completes the key up to its "=", then the value.
void addOverrides(Candidates& candidates) {
    const std::string_view begun = candidates.begunWord();
    const std::size_t mark = begun.find('=');
    if (mark == std::string_view::npos) return addSwitchKeys(candidates, "=");
    const std::string key(begun.substr(0, mark + 1));
    candidates.add(key + "true", "");
    candidates.add(key + "false", "");
}

// Completes the last rule of a list separated by ",".
void addRuleList(Candidates& candidates) {
    const std::string_view begun = candidates.begunWord();
    const std::string written(begun.substr(0, begun.rfind(',') + 1));
    for (const Rule& rule : kRules)
        candidates.add(written + std::string(rule.name), rule.title);
}

// Adds the words of a type. The type is the name that the help text gives to an option's value or to a word.
void addOfType(const std::string& type, Candidates& candidates) {
    if (type == "FILE") return candidates.addOfShell("files");
    if (type == "DIR") return candidates.addOfShell("directories");
    if (type == "CALL") return addCalls(candidates);
    if (type == "NAME") return addKeyNames(candidates);
    if (type == "KEY=true|false") return addOverrides(candidates);
    if (type == "RULE") {
        for (const Rule& rule : kRules)
            candidates.add(rule.name, rule.title);
    } else if (type == "RULE,...") {
        addRuleList(candidates);
    } else if (type.find('|') != std::string::npos) {
        ttservice::internal::splitDropEmpty(type, '|',
                                            [&candidates](std::string_view word) { candidates.add(word, ""); });
    }
}

bool takesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

void addOptions(const CLI::App& app, Candidates& candidates) {
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_snames())
            candidates.add('-' + name, option->get_description());
        for (const std::string& name : option->get_lnames())
            candidates.add("--" + name, option->get_description());
    }
}

void addSubcommands(const CLI::App& app, Candidates& candidates) {
    for (const CLI::App* below : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (!below->get_group().empty()) candidates.add(below->get_name(), below->get_description());
    }
}

// Follows the command line typed so far, to tell what the next word can be.
class Walk {
public:
    explicit Walk(const CLI::App& root) : app(&root) {}

    void step(const std::string& word) {
        if (pending != nullptr) {
            pending = nullptr;
        } else if (!literal && word == "--") {
            literal = true;
        } else if (!literal && word.size() > 1 && word[0] == '-') {
            const CLI::Option* option = app->get_option_no_throw(word);
            if (option != nullptr && takesValue(*option)) pending = option;
        } else if (const CLI::App* below = literal ? nullptr : subcommand(word)) {
            app = below;
        } else {
            ++words;
        }
    }

    void complete(const std::string& begun, Candidates& candidates) const {
        const std::size_t mark = begun.find('=');
        if (pending != nullptr) return addOfType(pending->get_type_name(), candidates);
        if (!literal && begun.rfind("--", 0) == 0 && mark != std::string::npos) {
            const CLI::Option* option = app->get_option_no_throw(begun.substr(0, mark));
            candidates.standBehind(begun.substr(0, mark + 1));
            if (option != nullptr && takesValue(*option)) addOfType(option->get_type_name(), candidates);
        } else if (!literal && begun.rfind('-', 0) == 0) {
            addOptions(*app, candidates);
        } else {
            if (words == 0) addSubcommands(*app, candidates);
            addWords(candidates);
        }
    }

private:
    const CLI::App* subcommand(const std::string& name) const {
        const auto below = app->get_subcommands([&name](const CLI::App* each) { return each->get_name() == name; });
        return below.empty() ? nullptr : below.front();
    }

    // Completes a word that is not an option: the next single word, or one more of a word that may be repeated.
    void addWords(Candidates& candidates) const {
        std::size_t place = 0;
        for (const CLI::Option* option : app->get_options()) {
            if (!option->nonpositional() && option->get_positional()) {
                const bool repeats = option->get_expected_max() > 1;
                if (place == words || (repeats && place < words)) {
                    const std::string type = option->get_type_name();
                    return addOfType(type.empty() ? option->get_single_name() : type, candidates);
                }
                ++place;
            }
        }
    }

    const CLI::App* app;
    const CLI::Option* pending = nullptr;  // its value comes next
    std::size_t words = 0;                 // the number of words that are not options
    bool literal = false;                  // after "--"
};

}  // namespace

int runCompletionWords(const CommandLine& commandLine, Output& output) {
    if (commandLine.words.empty()) return kExitDone;
    CommandLine scratch;
    Registration registration(scratch);
    Walk walk(registration.app());
    for (auto word = commandLine.words.begin(); word + 1 != commandLine.words.end(); ++word)
        walk.step(*word);
    Candidates candidates(commandLine.words.back());
    walk.complete(commandLine.words.back(), candidates);
    output.write(candidates.lines());
    return kExitDone;
}

}  // namespace ttconfig
