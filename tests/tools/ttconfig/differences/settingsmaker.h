#pragma once

#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tests {

// Makes pairs of settings texts that differ in some places, with values in every notation, including wrong ones. Names
// and numbers come from short lists, so that they often coincide.
class SettingsMaker {
public:
    explicit SettingsMaker(unsigned seed) : random(seed) {}

    // Two texts that agree in most of their keys.
    std::pair<std::string, std::string> pair();

    static const std::vector<std::string>& platforms();    // in every notation, for values and keys
    static const std::vector<std::string>& unknownKeys();  // switches with unknown names
    static const std::vector<std::string>& markets();      // of limit rows
    static const std::vector<std::string>& items();        // of limit rows: codes and category words
    static const std::vector<std::string>& names();        // of products, bonds, funds
    static const std::vector<std::string>& productIds();
    static const std::vector<std::string>& algorithmTypes();

private:
    struct Line {
        std::string section;
        std::string key;
        std::string value;
    };

    bool chance(int percent) { return static_cast<int>(random() % 100) < percent; }
    const std::string& oneOf(const std::vector<std::string>& list) { return list[random() % list.size()]; }
    std::string number();
    std::string joined(const std::vector<std::string>& list, char separator, std::size_t most);

    std::string platformList();
    std::string platformValues(const std::vector<std::string>& values);
    std::string limitKey();
    std::string limitValue(std::size_t fields);
    std::string contracts();
    std::string namedLists(const std::vector<std::string>& heads, const std::vector<std::string>& names);
    std::string valueIn(const std::string& section);
    std::string catalogueValue(const std::string& key);
    std::string valueOf(const std::string& section, const std::string& key);
    std::vector<Line> lines();
    std::vector<Line> changed(const std::vector<Line>& lines);
    std::string text(const std::vector<Line>& lines);

    std::mt19937 random;
};

}  // namespace tests
