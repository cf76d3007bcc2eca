// JSON texts: checks and rewrites every text before the parser gets it.
// Entry points: parseJson(), readJsonObject(), preparedJson().
// Covered by tests/config/internal/scripts/jsonobject_test.cpp.

#include "traderbase/base/config/internal/scripts/jsonobject.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>
#include <limits>
#include <new>
#include <string_view>

#include <mongo/db/json.h>
#include <mongo/logger/logger.h>

#include "traderbase/base/config/internal/text/digits.h"
#include "traderbase/base/config/internal/text/strictnumbers.h"

namespace bson = mongo;

namespace ttservice::internal {

namespace {

constexpr std::string_view kBlanks = " \t\n\v\f\r";

bool isNameCharacter(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '$';
}

// Whether the character is JSON punctuation or a blank that no locale uses as a decimal sign; some use the comma.
bool isPlain(char c) {
    return std::string_view("{}[]():+- \t\n\v\f\r").find(c) != std::string_view::npos;
}

bool isQuote(char c) {
    return c == '"' || c == '\'' || c == '/';  // "/" encloses a regular expression
}

// The UTF-8 encoding of a character above U+FFFF.
std::string utf8(std::uint32_t point) {
    std::string bytes;
    bytes += static_cast<char>(0xF0 | (point >> 18));
    bytes += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
    bytes += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
    bytes += static_cast<char>(0x80 | (point & 0x3F));
    return bytes;
}

// Copies a text, token by token, into the form that the parser gets.
class Preparation {
public:
    explicit Preparation(std::string_view whole) : text(whole) { prepared.reserve(whole.size() + whole.size() / 4); }

    std::string run() {
        while (at < text.size() && !complete)
            takeToken();
        return std::move(prepared);
    }

private:
    void takeToken() {
        const char c = text[at];
        if (isQuote(c)) return takeQuoted(c);
        if (startsNumber()) return takeNumber();
        if (isNameCharacter(c)) return takeName();
        countLevel(c);
        prepared += c;
        ++at;
        if (!isPlain(c)) prepared += ' ';
    }

    void countLevel(char c) {
        if (c == '{' || c == '[' || c == '(') {
            if (++level > kDeepestJson) throw RefusedJson("nested too deep");
        } else if (c == '}' || c == ']' || c == ')') {
            --level;
            complete = level == 0;
        }
    }

    void takeQuoted(char quote) {
        const std::size_t from = at++;
        bool nul = false;
        std::size_t copied = from;
        while (at < text.size() && text[at] != quote) {
            if (const std::uint32_t point = escapedPairAt(at); point != 0) {
                prepared.append(text.substr(copied, at - copied)).append(utf8(point));
                at += 12;
                copied = at;
                continue;
            }
            if (text[at] == '\\') {
                nul = nul || text.substr(at, 6) == "\\u0000";
                ++at;
            }
            ++at;
        }
        at = std::min(at + 1, text.size());
        const std::size_t next = text.find_first_not_of(kBlanks, at);
        if (nul && next != std::string_view::npos && text[next] == ':') throw RefusedJson("a name with a NUL in it");
        prepared += text.substr(copied, at - copied);
    }

    // The UTF-16 code unit given by an escape such as \u4e2d at this place; nothing if there is no escape.
    std::optional<std::uint32_t> escapedUnitAt(std::size_t place) const {
        const std::string_view escape = text.substr(std::min(place, text.size()), 6);
        std::uint32_t unit = 0;
        if (escape.size() < 6 || escape.substr(0, 2) != "\\u") return std::nullopt;
        const auto result = std::from_chars(escape.data() + 2, escape.data() + 6, unit, 16);
        return result.ptr == escape.data() + 6 ? std::optional<std::uint32_t>(unit) : std::nullopt;
    }

    // The character encoded by two consecutive escapes, which the parser would read as two characters; 0 if no such
    // pair starts here.
    std::uint32_t escapedPairAt(std::size_t place) const {
        const auto high = escapedUnitAt(place);
        if (!high || *high < 0xD800 || *high > 0xDBFF) return 0;
        const auto low = escapedUnitAt(place + 6);
        if (!low || *low < 0xDC00 || *low > 0xDFFF) return 0;
        return 0x10000 + ((*high - 0xD800) << 10) + (*low - 0xDC00);
    }

    void takeName() {
        const std::size_t from = at;
        while (at < text.size() && (isNameCharacter(text[at]) || text[at] == '.'))
            ++at;
        prepared += text.substr(from, at - from);
    }

    bool startsNumber() const {
        return isDigit(text[at]) || (text[at] == '.' && at + 1 < text.size() && isDigit(text[at + 1]));
    }

    std::string_view takeDigits() {
        const std::size_t from = at;
        while (at < text.size() && isDigit(text[at]))
            ++at;
        return text.substr(from, at - from);
    }

    // The exponent that follows, or 0. A huge exponent is limited to a value that is out of range for every number.
    long long takeExponent() {
        std::size_t digits = at + 1;
        if (at == text.size() || (text[at] != 'e' && text[at] != 'E')) return 0;
        const bool minus = digits < text.size() && text[digits] == '-';
        if (digits < text.size() && (minus || text[digits] == '+')) ++digits;
        if (digits == text.size() || !isDigit(text[digits])) return 0;
        at = digits;
        const std::string_view number = takeDigits();
        long long exponent = 0;
        constexpr long long kBeyondAll = std::numeric_limits<long long>::max() / 2;
        const auto result = std::from_chars(number.data(), number.data() + number.size(), exponent);
        if (result.ec != std::errc() || exponent > kBeyondAll) exponent = kBeyondAll;
        return minus ? -exponent : exponent;
    }

    // Rewrites 1.25e3 as 125e1, which is exactly the same number. Anything that is not a plain decimal number, such as
    // 0x1F, stays unchanged.
    void takeNumber() {
        const std::size_t from = at;
        const std::string_view integer = takeDigits();
        std::string number;
        if (at == text.size() || text[at] != '.') {
            takeExponent();
            while (at < text.size() && isNameCharacter(text[at]))
                ++at;
            number = text.substr(from, at - from);
        } else {
            ++at;
            const std::string_view fraction = takeDigits();
            const long long exponent = takeExponent() - static_cast<long long>(fraction.size());
            number.append(integer).append(fraction).append("e").append(std::to_string(exponent));
        }
        prepared.append(isTooSmall(number) ? "0e0" : number).append(" ");
    }

    // Whether a decimal number is too small for a double. The parser would refuse it, although it is valid JSON; it
    // reads as 0.
    static bool isTooSmall(const std::string& number) {
        return number.find_first_of("eE") != std::string::npos &&
               number.find_first_not_of("0123456789eE+-") == std::string::npos &&
               looseDouble(number) < std::numeric_limits<double>::min();
    }

    std::string_view text;
    std::size_t at = 0;
    int level = 0;
    bool complete = false;  // the outermost bracket is closed; the rest is ignored
    std::string prepared;
};

// Creates the log manager before the parser throws: the first exception in the process would create it without a lock.
// std::call_once will not do: an exception inside it unwinds through the C library, which may need memory for that.
void makeLogManager() {
    [[maybe_unused]] static const auto* const made = bson::logger::globalLogManager();
}

// Whether the code is one with which the JSON library reports that it has no memory for a buffer.
bool tellsOfNoBuffer(int code) {
    constexpr int kNoFirstBuffer = 10000;
    constexpr int kNoLargerBuffer = 16070;
    constexpr int kNoBufferBesidesTheStack = 15912;
    constexpr int kNoNewBuffer = 15913;
    return code == kNoFirstBuffer || code == kNoLargerBuffer || code == kNoBufferBesidesTheStack ||
           code == kNoNewBuffer;
}

// The same for the message, as quoted inside another exception.
bool tellsOfNoMemory(std::string_view reason) {
    constexpr std::string_view kNoBuffer[] = {"out of memory BufBuilder", "out of memory BufBuilder::grow_reallocate",
                                              "out of memory StackAllocator::Realloc",
                                              "out of memory BufBuilder::reset"};
    return reason == std::bad_alloc().what() ||
           std::find(std::begin(kNoBuffer), std::end(kNoBuffer), reason) != std::end(kNoBuffer);
}

// The parser wraps every exception raised inside it in one of its own, and truncates the message when there is no
// memory for all of it. Other messages quote the text, which may contain anything.
bool tellsOfNoMemory(const bson::DBException& failure) {
    constexpr int kParserFailed = 17031;
    constexpr std::string_view kIntroduction = "caught exception from within JSON parser: ";
    if (tellsOfNoBuffer(failure.getCode())) return true;
    if (failure.getCode() != kParserFailed) return false;
    const std::string_view message = failure.what();
    if (message.size() <= kIntroduction.size()) return kIntroduction.substr(0, message.size()) == message;
    return message.substr(0, kIntroduction.size()) == kIntroduction &&
           tellsOfNoMemory(message.substr(kIntroduction.size()));
}

}  // namespace

std::string preparedJson(const std::string& text) {
    return Preparation(text.c_str()).run();
}

bson::BSONObj parseJson(const std::string& text) {
    makeLogManager();
    const std::string prepared = preparedJson(text);
    try {
        return bson::fromjson(prepared);
    } catch (const bson::DBException& failure) {
        if (tellsOfNoMemory(failure)) throw std::bad_alloc();
        throw;
    }
}

std::optional<bson::BSONObj> readJsonObject(const std::string& text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first != std::string::npos && text[first] != '{') return std::nullopt;
    try {
        return parseJson(text);
    } catch (const std::bad_alloc&) {
        throw;  // not a fault of the text
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

}  // namespace ttservice::internal
