// Strict JSON parsing; errors carry their place.
// Entry points: parseStrictJson(), pathWithIndex(), pathWithName(), shownInMessage().
// Owns: the depth limit.
// Test: tests/platform/platformdatafile_test.cpp
#include "standin/strictjson.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <unordered_set>

namespace standin {

namespace {

constexpr std::size_t kDeepestNesting = 32;
constexpr std::size_t kLongestShown = 120;
constexpr int kNumberBeyondDouble = 406;  // the parser's number for this error
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string placeText(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, std::min(offset, text.size()));
    const std::size_t line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
    const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0, the start of the text
    return "line " + std::to_string(line) + ", column " + std::to_string(before.size() - lineStart + 1);
}

// The parser's message without its prefix, its own position, and the token, which may be as long as the file.
std::string reasonText(std::string_view words) {
    const std::size_t place = words.find(": ");
    if (words.substr(0, words.find(' ')) == "[json.exception.parse_error.101]" && place != std::string_view::npos) {
        words.remove_prefix(place + 2);
    } else if (const std::size_t label = words.find("] "); label != std::string_view::npos) {
        words.remove_prefix(label + 2);
    }
    return shownInMessage(words.substr(0, words.find("; last read")));
}

class TreeBuilder : public nlohmann::json_sax<nlohmann::json> {
public:
    TreeBuilder(std::string_view source, JsonValue& root, std::string& message)
        : text(source), target(&root), problem(message) {}

    bool null() override { return accept(JsonValue::Kind::kNull); }

    bool boolean(bool /*value*/) override { return accept(JsonValue::Kind::kBoolean); }

    bool number_integer(number_integer_t value) override {
        JsonValue& here = next();
        here.kind = JsonValue::Kind::kInteger;
        here.integer = value;
        here.text = std::to_string(value);
        return true;
    }

    bool number_unsigned(number_unsigned_t value) override {
        JsonValue& here = next();
        const bool fits = value <= static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max());
        here.kind = fits ? JsonValue::Kind::kInteger : JsonValue::Kind::kNumber;
        here.integer = fits ? static_cast<std::int64_t>(value) : 0;
        here.text = std::to_string(value);
        return true;
    }

    bool number_float(number_float_t /*value*/, const string_t& written) override {
        JsonValue& here = next();
        here.kind = JsonValue::Kind::kNumber;
        here.text = written;
        return true;
    }

    bool string(string_t& value) override {
        JsonValue& here = next();
        here.kind = JsonValue::Kind::kText;
        here.text = std::move(value);
        return true;
    }

    bool binary(binary_t& /*value*/) override { return false; }

    bool start_object(std::size_t /*count*/) override { return open(JsonValue::Kind::kObject); }
    bool start_array(std::size_t /*count*/) override { return open(JsonValue::Kind::kList); }

    bool key(string_t& name) override {
        Level& level = levels.back();
        if (!level.names.insert(name).second) {
            problem = pathWithName(level.path, name) + ": given twice";
            return false;
        }
        level.container->members.emplace_back(std::move(name), JsonValue());
        return true;
    }

    bool end_object() override { return close(); }
    bool end_array() override { return close(); }

    bool parse_error(std::size_t position, const std::string& /*token*/,
                     const nlohmann::json::exception& error) override {
        if (error.id == kNumberBeyondDouble) {
            problem = valuePath() + ": a number beyond all bounds";
            return false;
        }
        // The position counts the bytes read, including the offending one.
        problem = placeText(text, position == 0 ? 0 : position - 1) + ": not JSON: " + reasonText(error.what());
        return false;
    }

private:
    struct Level {
        JsonValue* container;
        std::string path;
        std::unordered_set<std::string> names;
    };

    // The path of the next value.
    std::string valuePath() const {
        if (levels.empty()) return {};
        const Level& outer = levels.back();
        if (outer.container->kind == JsonValue::Kind::kList) {
            return pathWithIndex(outer.path, outer.container->items.size());
        }
        return pathWithName(outer.path, outer.container->members.back().first);
    }

    // Where the next value belongs. Containers only grow at their open end, so pointers to the open levels stay valid.
    JsonValue& next() {
        if (levels.empty()) return *target;
        JsonValue& container = *levels.back().container;
        if (container.kind == JsonValue::Kind::kObject) return container.members.back().second;
        return container.items.emplace_back();
    }

    bool accept(JsonValue::Kind kind) {
        next().kind = kind;
        return true;
    }

    bool open(JsonValue::Kind kind) {
        std::string path = valuePath();
        if (levels.size() == kDeepestNesting) {
            problem = path + ": nested more than " + std::to_string(kDeepestNesting) + " deep";
            return false;
        }
        JsonValue& here = next();
        here.kind = kind;
        levels.push_back({&here, std::move(path), {}});
        return true;
    }

    bool close() {
        levels.pop_back();
        return true;
    }

    std::string_view text;
    JsonValue* target;
    std::string& problem;
    std::vector<Level> levels;
};

}  // namespace

std::string pathWithIndex(const std::string& path, std::size_t index) {
    return path + "[" + std::to_string(index) + "]";
}

std::string pathWithName(const std::string& path, std::string_view name) {
    const std::string shown = name.empty() ? "\"\"" : shownInMessage(name);
    return path.empty() ? shown : path + "." + shown;
}

std::string shownInMessage(std::string_view text) {
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    constexpr std::size_t kLongestCharacter = 4;
    std::string shown;
    for (std::size_t at = 0; at < text.size(); ++at) {
        unsigned char byte = static_cast<unsigned char>(text[at]);
        // Do not cut inside a character. Invalid UTF-8 may have any number of continuation bytes, hence the limit.
        const bool continuesCharacter = (byte & 0xC0) == 0x80 && shown.size() < kLongestShown + kLongestCharacter;
        if (shown.size() >= kLongestShown && !continuesCharacter) {
            shown += "...";
            break;
        }
        // The control characters U+0080 to U+009F take two bytes each; terminals obey them as well.
        const bool isWideControl = byte == 0xC2 && at + 1 < text.size() && (text[at + 1] & 0xE0) == 0x80;
        if (byte < 0x20 || byte == 0x7F || isWideControl) {
            if (isWideControl) byte = static_cast<unsigned char>(text[++at]);
            shown += "\\u00";
            shown += kHexDigits[byte >> 4];
            shown += kHexDigits[byte & 0x0F];
        } else {
            shown += text[at];
        }
    }
    return shown;
}

bool parseStrictJson(std::string_view text, JsonValue& value, std::string& problem) {
    if (text.substr(0, kUtf8Mark.size()) == kUtf8Mark) text.remove_prefix(kUtf8Mark.size());
    value = JsonValue();
    // The parser would take a NUL for the end of the text and ignore the rest.
    if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos) {
        problem = placeText(text, nul) + ": not JSON: a NUL byte";
        return false;
    }
    TreeBuilder builder(text, value, problem);
    return nlohmann::json::sax_parse(text.begin(), text.end(), &builder);
}

}  // namespace standin
