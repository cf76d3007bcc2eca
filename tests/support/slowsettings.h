#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

// A second, slow and obvious implementation of the grammar of settings texts, as an oracle for the reader.

namespace tests {

struct Section {
    std::string name;
    std::vector<std::pair<std::string, std::string>> entries;  // each key once, with its first value

    bool operator==(const Section& other) const { return name == other.name && entries == other.entries; }
};

inline void PrintTo(const Section& section, std::ostream* out) {
    *out << "[" << section.name << "]";
    for (const auto& [key, value] : section.entries)
        *out << " '" << key << "'='" << value << "'";
}

using Sections = std::vector<Section>;

inline std::string withoutBlanks(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string::npos) return std::string();
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

inline void addFirst(Sections& all, std::size_t at, const std::string& key, const std::string& value) {
    for (const auto& entry : all[at].entries) {
        if (entry.first == key) return;
    }
    all[at].entries.emplace_back(key, value);
}

inline Sections slowlyRead(std::string bytes) {
    if (bytes.compare(0, 3, "\xEF\xBB\xBF") == 0) bytes.erase(0, 3);
    for (std::size_t at = 0; (at = bytes.find("\r\n", at)) != std::string::npos;)
        bytes.erase(at, 1);
    Sections all;
    std::size_t current = std::string::npos;
    std::size_t start = 0;
    while (start <= bytes.size()) {
        std::size_t end = bytes.find('\n', start);
        if (end == std::string::npos) end = bytes.size();
        const std::string line = withoutBlanks(bytes.substr(start, end - start));
        start = end + 1;
        if (line.empty() || line[0] == ';' || line[0] == '#') continue;
        if (line[0] == '[') {
            if (line.find(']') == std::string::npos) continue;
            const std::string name = withoutBlanks(line.substr(1, line.find(']') - 1));
            for (current = 0; current < all.size() && all[current].name != name;)
                ++current;
            if (current == all.size()) all.push_back({name, {}});
            continue;
        }
        const std::size_t sign = line.find('=');
        if (sign == std::string::npos || sign == 0 || current == std::string::npos) continue;
        addFirst(all, current, withoutBlanks(line.substr(0, sign)), withoutBlanks(line.substr(sign + 1)));
    }
    return all;
}

}  // namespace tests
