// Expectations: parses the lines of an expectation file.
// Entry points: readExpectation().
// Owns: the grammar of the lines.
// Covered by tests/tools/ttconfig/expectations/expectation_test.cpp.

#include "ttconfig/expectations/expectation.h"

#include <utility>

#include "ttconfig/calls/records.h"
#include "ttconfig/text/showntext.h"

namespace ttconfig {

namespace {

bool isBlank(char letter) {
    return letter == ' ' || letter == '\t' || letter == '\r';
}

// Reads one line from left to right. Throws MalformedLine.
class LineReader {
public:
    LineReader(std::string_view wholeLine, std::uint32_t lineNumber) : line(wholeLine), number(lineNumber) {}

    // Skips blanks; true when nothing or only a comment follows.
    bool isAtEnd() {
        while (at < line.size() && isBlank(line[at]))
            ++at;
        return at == line.size() || (line[at] == '#' && isBehindBlank());
    }

    bool isAtEqual() const { return at < line.size() && line[at] == '='; }
    void pass() { ++at; }

    Place place() const { return {number, static_cast<std::uint32_t>(at) + 1}; }

    // A word of the question, without its quotes.
    std::string word() {
        const std::size_t start = at;
        const Place here = place();
        const char opening = line[at];
        if (opening == '"' || opening == '[' || opening == '{') skipJson();
        while (at < line.size() && !isBlank(line[at]) && line[at] != '=')
            ++at;
        std::string text(line.substr(start, at - start));
        return opening == '"' ? unquoted(text, here) : text;
    }

    // The rest of the line up to a comment, unchanged.
    std::string rest() {
        const std::size_t start = at;
        std::size_t end = at;
        while (!isAtEnd()) {
            if (line[at] == '"') {
                skipJson();
            } else {
                ++at;
            }
            end = at;
        }
        return std::string(line.substr(start, end - start));
    }

    [[noreturn]] static void refuse(Place where, const std::string& message) { throw MalformedLine{where, message}; }

private:
    bool isBehindBlank() const { return at == 0 || isBlank(line[at - 1]); }

    // Skips a quoted text or a value in brackets.
    void skipJson() {
        const Place start = place();
        int depth = 0;
        bool isQuoted = false;
        do {
            const char letter = line[at];
            if (isQuoted && letter == '\\') {
                ++at;
            } else if (letter == '"') {
                isQuoted = !isQuoted;
            } else if (!isQuoted && (letter == '[' || letter == '{')) {
                ++depth;
            } else if (!isQuoted && (letter == ']' || letter == '}')) {
                --depth;
            }
            ++at;
        } while ((isQuoted || depth > 0) && at < line.size());
        if (isQuoted) refuse(start, "a quoted text without its end");
        if (depth > 0) refuse(start, "a bracket without its end");
        if (at > line.size()) at = line.size();
    }

    static std::string unquoted(const std::string& text, Place where) {
        const Argument value = Argument::parse(text, nullptr, false);
        if (!value.is_string()) refuse(where, shownText(text) + " is no JSON string");
        return value.get<std::string>();
    }

    const std::string_view line;
    const std::uint32_t number;
    std::size_t at = 0;
};

Expectation expectationOf(LineReader& reader) {
    Expectation expectation;
    expectation.place = reader.place();
    while (!reader.isAtEnd() && !reader.isAtEqual()) {
        expectation.places.push_back(reader.place());
        expectation.words.push_back(reader.word());
    }
    if (expectation.words.empty()) LineReader::refuse(expectation.place, "no question in front of the =");
    if (!reader.isAtEqual()) LineReader::refuse(reader.place(), "no = and expected answer behind the question");
    reader.pass();
    // The expected answer may be an empty text.
    if (!reader.isAtEnd()) expectation.expected = reader.rest();
    return expectation;
}

}  // namespace

std::optional<Expectation> readExpectation(std::string_view line, std::uint32_t number,
                                           std::vector<MalformedLine>& malformed) {
    LineReader reader(line, number);
    if (reader.isAtEnd()) return std::nullopt;
    try {
        return expectationOf(reader);
    } catch (MalformedLine& wrong) {
        malformed.push_back(std::move(wrong));
        return std::nullopt;
    }
}

}  // namespace ttconfig
