// Checks that the session's seeds and dictionary keep up with the tool's call table: the seeds execute every overload
// of every operation, and the dictionary has a whole request for every operation, or its name in quotes.

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "fuzz/session/sessioncalls.h"
#include "fuzz/support/target.h"

namespace {

using Json = nlohmann::json;

// libFuzzer silently ignores longer words.
constexpr std::size_t kLongestWord = 64;

bool isPrintable(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char byte) { return byte >= ' ' && byte <= '~'; });
}

// The byte of an escape sequence; moves the place to its last character. libFuzzer knows \\, \" and \xNN.
std::optional<char> escapedAt(const std::string& line, std::size_t& place) {
    const std::string digits = line.substr(place + 2, 2);
    switch (line[++place]) {
        case '\\':
        case '"':
            return line[place];
        case 'x':
            if (digits.size() != 2 || digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
                return {};
            place += 2;
            return static_cast<char>(std::stoi(digits, nullptr, 16));
        default:
            return {};
    }
}

// The word on a dictionary line; none for a line at which libFuzzer would exit.
std::optional<std::string> wordOf(const std::string& line) {
    if (line.size() < 3 || line.front() != '"' || line.back() != '"' || !isPrintable(line)) return std::nullopt;
    std::string word;
    for (std::size_t i = 1; i + 1 < line.size(); ++i) {
        const std::optional<char> byte = line[i] == '\\' ? escapedAt(line, i) : line[i];
        if (!byte) return std::nullopt;
        word += *byte;
    }
    return word;
}

// What is wrong with a dictionary line, if anything. Adds the operation that the line names or calls to names.
std::string objection(const std::string& line, std::set<std::string>& names) {
    if (line.empty() || line.front() == '#') return {};
    const std::optional<std::string> word = wordOf(line);
    if (!word) return "no word in quotes";
    if (word->size() > kLongestWord) return "longer than " + std::to_string(kLongestWord) + " bytes";
    const Json value = Json::parse(*word, nullptr, false);
    if (value.is_string()) names.insert(value.get<std::string>());
    if (!value.is_object() || !value.contains("call")) return {};
    try {
        const auto name = value["call"].get<std::string>();
        names.insert(name);
        ttconfig::CallState state;
        ttconfig::callTable().requireArguments(state, name, value.value("args", ttconfig::Arguments()));
    } catch (const std::exception& refused) {
        return refused.what();
    }
    return {};
}

// Prints everything that is wrong with the dictionary and every operation that it lacks.
bool isDictionaryComplete() {
    std::ifstream file(TT_SOURCE_DIR "/fuzz/words/session.dict");
    std::set<std::string> names;
    bool isComplete = true;
    for (std::string line; std::getline(file, line);) {
        const std::string wrong = objection(line, names);
        if (wrong.empty()) continue;
        std::fprintf(stderr, "fuzz/words/session.dict: %s: %s\n", line.c_str(), wrong.c_str());
        isComplete = false;
    }
    for (const auto& row : ttconfig::callTable().rows()) {
        if (names.count(row.first) > 0) continue;
        std::fprintf(stderr, "fuzz/words/session.dict names nowhere %s\n", row.first.c_str());
        isComplete = false;
    }
    return isComplete;
}

}  // namespace

bool fuzz::seedsSuffice() {
    const std::vector<std::string> missing = neverCarriedOut();
    for (const std::string& row : missing)
        std::fprintf(stderr, "no seed of the session has this carried out: %s\n", row.c_str());
    return isDictionaryComplete() && missing.empty();
}
