#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace ttconfig {

// The text as it may stand between tags: &, <, > and quotes as entities, bytes that are not UTF-8 as U+FFFD.
std::string markupText(std::string_view text);

// JSON written from front to back, for a script element: no text in it can end the element or start a comment, and
// bytes that are not UTF-8 come out as U+FFFD. Nothing is held but a small buffer, however long the whole gets. Members
// and elements of the two outer levels start lines of their own. The caller sees to it that what is begun is ended and
// that names stand where names belong.
class JsonStream {
public:
    using Sink = std::function<void(std::string_view)>;

    explicit JsonStream(Sink whereTo);
    JsonStream(const JsonStream&) = delete;
    JsonStream& operator=(const JsonStream&) = delete;

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }
    void name(std::string_view memberName);

    void text(std::string_view value);
    void integer(std::int64_t value);
    // A number that JSON cannot write is written as a text.
    void decimal(double value);
    void flag(bool value);
    void null();
    // A value that is JSON already.
    void written(std::string_view json);

    // Hands over what is left in the buffer.
    void flush();

private:
    void begin(char bracket);
    void end(char bracket);
    void separate();
    void put(std::string_view piece);
    void putEscaped(std::string_view value);

    Sink sink;
    std::string buffer;
    int depth = 0;
    bool needsComma = false;
    bool followsName = false;
};

}  // namespace ttconfig
