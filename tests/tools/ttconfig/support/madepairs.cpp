#include "tests/tools/ttconfig/support/madepairs.h"

#include <algorithm>
#include <boost/algorithm/string/replace.hpp>
#include <iterator>
#include <map>
#include <sstream>

#include "traderbase/base/config/internal/text/splitting.h"

namespace tests {

namespace {

constexpr std::string_view kSeparators = ";,|";

// Both texts without their common beginning and end.
std::pair<std::string_view, std::string_view> differing(std::string_view before, std::string_view after) {
    const auto front = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto same = static_cast<std::size_t>(front.first - before.begin());
    before.remove_prefix(same);
    after.remove_prefix(same);
    const auto back = std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend());
    const auto sameBehind = static_cast<std::size_t>(back.first - before.rbegin());
    before.remove_suffix(sameBehind);
    after.remove_suffix(sameBehind);
    return {before, after};
}

std::string joined(const std::vector<std::string_view>& pieces, char separator) {
    std::string text;
    for (std::size_t i = 0; i < pieces.size(); ++i)
        text.append(i == 0 ? "" : std::string(1, separator)).append(pieces[i]);
    return text;
}

// Numbers as people write them, and as edits write them.
std::string plain(std::string text) {
    boost::algorithm::replace_all(text, "1e3", "1000");
    for (const char* before : {",", "=", ":", ";"})
        boost::algorithm::replace_all(text, std::string(before) + ".5", std::string(before) + "0.5");
    return text;
}

}  // namespace

std::string_view wordOf(MadeChange change) {
    static constexpr std::string_view kWords[] = {"added line",  "removed line",  "other value", "other key",
                                                  "added piece", "removed piece", "other piece"};
    return kWords[static_cast<int>(change)];
}

std::string MadePair::shown() const {
    const auto [out, in] = differing(before, after);
    const std::size_t at = static_cast<std::size_t>(out.data() - before.data());
    const std::size_t start = at == 0 ? 0 : before.rfind('\n', at - 1) + 1;
    return before.substr(start, at - start) + "{-" + std::string(out) + "-}{+" + std::string(in) + "+}" +
           before.substr(at + out.size(), before.find('\n', at + out.size()) - at - out.size());
}

MadePairs::MadePairs(unsigned seed)
    : random(seed),
      first(linesOf(plain(MadeSettings(seed).text()))),
      second(linesOf(plain(MadeSettings(seed + 100000).text()))) {}

std::vector<MadePairs::Line> MadePairs::linesOf(const std::string& text) {
    std::vector<Line> lines;
    std::istringstream all(text);
    std::string section;
    for (std::string line; std::getline(all, line);) {
        const std::size_t mark = line.find('=');
        const bool isHeader = !line.empty() && line.front() == '[';
        if (isHeader) section = line.substr(1, line.size() - 2);
        lines.push_back(
            {section, isHeader ? line : line.substr(0, mark), isHeader ? "" : line.substr(mark + 1), isHeader});
    }
    return lines;
}

std::string MadePairs::textOf(const std::vector<Line>& lines) {
    std::string text;
    for (const Line& line : lines)
        text += line.isHeader ? line.key + "\n" : line.key + "=" + line.value + "\n";
    return text;
}

MadePairs::Line MadePairs::otherLike(const Line& line) {
    std::vector<Line> likely;
    for (const Line& each : second) {
        if (!each.isHeader && each.section == line.section && (line.isHeader || each.key == line.key))
            likely.push_back(each);
    }
    if (likely.empty()) {
        for (const Line& each : second) {
            if (!each.isHeader && each.section == line.section) likely.push_back(each);
        }
    }
    return likely.empty() ? line : likely[below(likely.size())];
}

std::string MadePairs::changedPieces(const Line& line, MadeChange kind) {
    const char separator = kSeparators[below(kSeparators.size())];
    std::vector<std::string_view> pieces = ttservice::internal::pieces(line.value, separator);
    const std::string other = otherLike(line).value;
    const std::vector<std::string_view> others = ttservice::internal::pieces(other, separator);
    const auto at = static_cast<std::ptrdiff_t>(below(pieces.size()));
    const std::string_view piece = others[below(others.size())];
    if (kind == MadeChange::AddedPiece) {
        pieces.insert(pieces.begin() + at, piece);
    } else if (kind == MadeChange::RemovedPiece) {
        pieces.erase(pieces.begin() + at);
    } else {
        pieces[static_cast<std::size_t>(at)] = piece;
    }
    return joined(pieces, separator);
}

// Chooses each section with equal probability, however long it is.
std::size_t MadePairs::anyPlace(const std::vector<Line>& lines) {
    std::map<std::string_view, std::vector<std::size_t>> places;
    for (std::size_t i = 0; i < lines.size(); ++i)
        places[lines[i].section].push_back(i);
    // The main section has most of the keys, so prefer it.
    const auto main = places.find("setting");
    const bool isMain = main != places.end() && below(2) == 0;
    const auto section = isMain ? main : std::next(places.begin(), static_cast<std::ptrdiff_t>(below(places.size())));
    return section->second[below(section->second.size())];
}

bool MadePairs::change(std::vector<Line>& lines, MadeChange kind) {
    const std::size_t at = anyPlace(lines);
    Line& line = lines[at];
    const auto place = lines.begin() + static_cast<std::ptrdiff_t>(at);
    if (kind == MadeChange::AddedLine) {
        const Line added = otherLike({line.section, line.key, line.value, true});
        if (added.isHeader) return false;
        lines.insert(place + 1, added);
        return true;
    }
    if (line.isHeader) return false;
    if (kind == MadeChange::RemovedLine) {
        lines.erase(place);
    } else if (kind == MadeChange::OtherValue) {
        line.value = otherLike(line).value;
    } else if (kind == MadeChange::OtherKey) {
        line.key = otherLike({line.section, line.key, line.value, true}).key;
    } else {
        line.value = changedPieces(line, kind);
    }
    return true;
}

MadePair MadePairs::next() {
    const std::string before = textOf(first);
    while (true) {
        std::vector<Line> lines = first;
        const auto kind = static_cast<MadeChange>(below(7));
        if (!change(lines, kind)) continue;
        const std::string after = textOf(lines);
        if (after == before) continue;
        const auto [out, in] = differing(before, after);
        const auto ends = std::count(after.data(), in.data(), '\n');
        return {before, after, kind, static_cast<std::uint32_t>(ends + 1), out.size() + in.size()};
    }
}

ttconfig::Arguments madeArguments(MadeQuestions& made, const std::string& name, const ttconfig::Call& call) {
    ttconfig::Arguments arguments;
    for (const ttconfig::Parameter& parameter : call.parameters) {
        if (parameter.wanted == "int") arguments.emplace_back(made.number());
        if (parameter.wanted == "bool") arguments.emplace_back(made.flag());
        if (parameter.wanted == "text") arguments.emplace_back(made.text(name, arguments.size()));
    }
    return arguments;
}

}  // namespace tests
