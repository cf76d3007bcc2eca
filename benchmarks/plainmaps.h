#pragma once

#include <charconv>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Reads a settings file by hand, with nothing but the standard library.

namespace benchmarks {

using PlainSections = std::map<std::string, std::map<std::string, std::string, std::less<>>, std::less<>>;
using PlainLists = std::map<std::string, std::vector<int>, std::less<>>;

inline std::string wholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    std::string bytes(static_cast<std::size_t>(file.tellg()), '\0');
    file.seekg(0);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return bytes;
}

// Passes every line, without its line end, to the sink.
template <typename Sink>
void forEachLine(std::string_view rest, const Sink& sink) {
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        sink(rest.substr(0, end));
        if (end == std::string_view::npos) return;
        rest.remove_prefix(end + 1);
    }
}

inline std::string_view withoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") + 1 - first);
}

// Section, key, value; a repeated key keeps its first value.
inline PlainSections plainSections(const std::string& path) {
    const std::string bytes = wholeFile(path);
    PlainSections sections;
    auto* section = &sections[""];
    forEachLine(bytes, [&](std::string_view line) {
        line = withoutBlanks(line);
        if (line.empty() || line.front() == ';' || line.front() == '#') return;
        if (line.front() == '[') {
            section = &sections[std::string(line.substr(1, line.find(']') - 1))];
            return;
        }
        const std::size_t equal = line.find('=');
        if (equal == std::string_view::npos) return;
        section->emplace(withoutBlanks(line.substr(0, equal)), withoutBlanks(line.substr(equal + 1)));
    });
    return sections;
}

inline std::vector<int> plainList(std::string_view value) {
    std::vector<int> ids;
    const char* const end = value.data() + value.size();
    for (const char* at = value.data(); at < end; ++at) {
        int id = 0;
        at = std::from_chars(at, end, id).ptr;
        ids.push_back(id);
    }
    return ids;
}

// The platform lists of section "setting", the result of a load.
inline PlainLists plainLists(const PlainSections& sections) {
    PlainLists lists;
    const auto section = sections.find("setting");
    if (section == sections.end()) return lists;
    for (const auto& [key, value] : section->second)
        lists.emplace_hint(lists.end(), key, plainList(value));
    return lists;
}

// Whether a list in text form contains the platform.
inline bool textLists(std::string_view value, int platformId) {
    const char* const end = value.data() + value.size();
    for (const char* at = value.data(); at < end; ++at) {
        int id = 0;
        at = std::from_chars(at, end, id).ptr;
        if (id == platformId) return true;
    }
    return false;
}

}  // namespace benchmarks
