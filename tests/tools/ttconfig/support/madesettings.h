#pragma once

#include <random>
#include <string>
#include <vector>

#include "traderbase/base/config/internal/keys/settingkeys.h"

namespace tests {

// Makes settings files that mix valid keys, rows and items of every kind with near misses. They use the few platforms,
// markets, codes and products that MadeQuestions asks about.
class MadeSettings {
public:
    explicit MadeSettings(unsigned seed) : random(seed) {}

    std::string text();

private:
    using ValueGrammar = ttservice::internal::ValueGrammar;

    bool oneIn(unsigned count) { return random() % count == 0; }
    const std::string& any(const std::vector<std::string>& values) { return values[random() % values.size()]; }
    // At most this many pieces, with the separator between them.
    std::string list(const std::vector<std::string>& pieces, const char* separator, unsigned most);

    std::string sectionText(const std::string& section);
    std::string value(ValueGrammar grammar);
    std::string perPlatform(const std::vector<std::string>& values);
    std::string platformPairs(const std::vector<std::string>& payloads);
    std::string limitKey();
    std::string numbers(unsigned count);

    std::mt19937 random;
};

// Makes the arguments of a question, most of them named in a generated settings file.
class MadeQuestions {
public:
    explicit MadeQuestions(unsigned seed) : random(seed) {}

    int number();
    std::string text(const std::string& call, std::size_t place);
    bool flag() { return random() % 2 == 0; }
    std::size_t below(std::size_t count) { return random() % count; }

private:
    std::mt19937 random;
};

}  // namespace tests
